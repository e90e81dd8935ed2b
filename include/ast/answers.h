/* What most people ask a record: when, who, where, how fast. One struct for all categories and editions.
 *
 *     ast_answer_context_t context = {.has_reception = true, .reception_ns = nanoseconds_since_1970};
 *     ast_answers_t answers;
 *     ast_datarecord_get_answers(&record, &context, &answers);
 *     if (answers.present & AST_ANSWER_FL) printf("FL %.2f\n", answers.fl);
 *
 * The answers are the published fields (schema.h) in one unit each, of all 27 published categories. They go beside the
 * value records and accessors of the categories (queries.h), which read some fields as their users know them.
 *
 * Which item answers what. Where several do, the first one that is there and good counts; the flags below the line are
 * set when any of them says so. "r" stands for the Mode S registers of the item before it: BDS 4,0 selected altitude
 * (MCP/FCU, or else FMS), BDS 5,0 roll, track, ground speed and true airspeed, BDS 6,0 magnetic heading, indicated
 * airspeed, Mach number and vertical rate (barometric, or else inertial), each only where its status bit is set, and
 * BDS 2,0 callsign.
 *
 *     answer               001      004      007      010      011      015  017  018      020      021, before 1
 *     sac, sic             010      010      010      010      010      010  010  036      010      010
 *     type                 020      000      410      000      000      000  000  all      all      all
 *     time                 141      020      140      140      140      145  140  002      140      030
 *     track_number         161      030      161      161      161      161                161
 *     squawk               070      170/M31  070      060      060           070  032      070      070 (0.26)
 *     callsign                      170/MS1, 240, r   245, r   245, r,            031      245, r   170
 *                                   AI1                        390/CSN
 *     icao24                                 220      220      380/ADR       220  005      220      080
 *     fl                   090               090      090      090, 093      050  033      090      145
 *     altitude_ft                            110,              092      601                105      140
 *                                            085/GA
 *     selected_altitude_ft                   250 r    250 r    380 r                       250 r    146, 148
 *     latitude, longitude                    085/POS  041      041      600  045           041      130
 *     range_nm             040               040      040               625       014
 *     azimuth_deg          040               040      040               627       014
 *     x_nm, y_nm           042               042      042      042                015      042
 *     groundspeed_kt       200               200, r   200, 202 202, r   602  200  034      202, r   160
 *     track_deg            200               200, r   200, 202 202, r   602  200  035      202, r   160
 *     magnetic_heading_deg                   250 r    250 r    380 r                       250 r    152
 *     vertical_rate_ftmin                    250 r    250 r    215, r   604                250 r    155, 157
 *     roll_deg                               250 r    250 r    380 r                       250 r    230
 *     true_airspeed_kt                       250 r    250 r    380 r                       250 r    151
 *     indicated_airspeed_kt, mach            250 r    250 r    380 r                       250 r    150
 *     --------
 *     spi                  020               020, 230 020      170, 380                    020, 230 040
 *     emergency            020               020               170, 380                             200
 *     on_ground                              230      020      170, 380           012      020, 230 040
 *     simulated            020               020      020      170      020                020      040
 *     test                 020               020      020                                  020      040
 *     coasted              020               020      170      170      170  240           170
 *     ended                170               170      170      170      000                170
 *
 *     answer               021, since 2.1       032  048                062                     150  205
 *     sac, sic             010                  010  010                010                          010
 *     type                 all                  all  all                all                     030  000
 *     time                 071, 073 and 074,    020  140                070                          030
 *                          077, 072, 075 and 076
 *     track_number         161                  040  161                040                     210  160
 *     squawk               070                  060  070                060, 340/MDA            060
 *     callsign             170, 250 r           400  240, 250 r         245, 380/ID, r, 390/CS  050
 *     icao24               080                       220                380/ADR
 *     fl                   145                       090                136, 135, 340/MDC
 *     altitude_ft          140                       110, REF/M5N/GA,   130, 380/GAL, 110/GA,
 *                                                    REF/MD5/GA         340/HEIGHT
 *     selected_altitude_ft 146, 148, 250 r           250 r              380/SAL, 380/FSS, r
 *     latitude, longitude  131, 130                  REF/M5N/POS,       105, 380/POS, 110/POS        050
 *                                                    REF/MD5/POS
 *     range_nm                                       REF/ERR, 040       340/POS
 *     azimuth_deg                                    040                340/POS                      070, 080
 *     x_nm, y_nm                                     042                100                          060
 *     groundspeed_kt       160, REF/SGV, 250 r       200, 250 r         185, 380/GS, r
 *     track_deg            160, REF/SGV, 250 r       200, 250 r         185, 380/TAN, r
 *     magnetic_heading_deg 152, REF/SGV, 250 r       250 r              380/MHG, r
 *     true_heading_deg     REF/TNH, REF/SGV
 *     vertical_rate_ftmin  155, 157, 250 r           250 r              220, 380/BVR, 380/GVR, r
 *     roll_deg             230, 250 r                250 r              380/RAN, r
 *     true_airspeed_kt     151, 250 r                250 r              380/TAS, r
 *     indicated_airspeed_kt, mach 150, 250 r         250 r              380/IAR, 380/MAC, 380/IAS, r
 *     --------
 *     spi                  200, 271                  020, 230           080, 380/COM
 *     emergency            200, REF/STA              020                080, 380/SAB, REF/V3/PS3
 *     on_ground            040                       230                080, 380/COM, 380/SAB
 *     simulated            040                       020                080, 340/TYP
 *     test                 040                       020                340/TYP
 *     coasted                                        020                080
 *     ended                                          170                080                          000
 *
 * Categories 002, 008, 009, 016, 019, 023, 025, 034, 063, 065, 240 and 247 answer source, time and type: 010 and 000 in
 * all that have them, time in 030 of 002, 034, 063 and 065, 070 of 009, 023 and 025, 090 of 008, and 140 of the rest.
 *
 * The frame of range, azimuth, x and y is AST_FRAME_RADAR in 001, 007, 018 and 048, AST_FRAME_TANGENTIAL in 010 and
 * 020, and AST_FRAME_SYSTEM in 011, 062 and 205; 170 of 007 and 048 may say that it is AST_FRAME_TANGENTIAL (TCC).
 *
 * Positions of stations and of what is predicted, and heights above the plane of a sensor (010/091, 020/110), are no
 * answers. */
#ifndef AST_ANSWERS_H
#define AST_ANSWERS_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/* Which answers are there: bits of ast_answers_t.present. */
#define AST_ANSWER_TIMESTAMP (UINT64_C(1) << 0)
#define AST_ANSWER_TIME (UINT64_C(1) << 1)
#define AST_ANSWER_CATEGORY (UINT64_C(1) << 2)
#define AST_ANSWER_SAC (UINT64_C(1) << 3)
#define AST_ANSWER_SIC (UINT64_C(1) << 4)
#define AST_ANSWER_TYPE (UINT64_C(1) << 5)
#define AST_ANSWER_TRACK_NUMBER (UINT64_C(1) << 6)
#define AST_ANSWER_SQUAWK (UINT64_C(1) << 7)
#define AST_ANSWER_CALLSIGN (UINT64_C(1) << 8)
#define AST_ANSWER_ICAO24 (UINT64_C(1) << 9)
#define AST_ANSWER_FL (UINT64_C(1) << 10)
#define AST_ANSWER_ALTITUDE (UINT64_C(1) << 11)
#define AST_ANSWER_SELECTED_ALTITUDE (UINT64_C(1) << 12)
#define AST_ANSWER_LATITUDE (UINT64_C(1) << 13)
#define AST_ANSWER_LONGITUDE (UINT64_C(1) << 14)
#define AST_ANSWER_RANGE (UINT64_C(1) << 15)
#define AST_ANSWER_AZIMUTH (UINT64_C(1) << 16)
#define AST_ANSWER_X (UINT64_C(1) << 17)
#define AST_ANSWER_Y (UINT64_C(1) << 18)
#define AST_ANSWER_GROUNDSPEED (UINT64_C(1) << 19)
#define AST_ANSWER_TRACK (UINT64_C(1) << 20)
#define AST_ANSWER_MAGNETIC_HEADING (UINT64_C(1) << 21)
#define AST_ANSWER_TRUE_HEADING (UINT64_C(1) << 22)
#define AST_ANSWER_VERTICAL_RATE (UINT64_C(1) << 23)
#define AST_ANSWER_ROLL (UINT64_C(1) << 24)
#define AST_ANSWER_TRUE_AIRSPEED (UINT64_C(1) << 25)
#define AST_ANSWER_INDICATED_AIRSPEED (UINT64_C(1) << 26)
#define AST_ANSWER_MACH (UINT64_C(1) << 27)
#define AST_ANSWER_SQUAWK_VALIDATED (UINT64_C(1) << 28)
#define AST_ANSWER_SQUAWK_GARBLED (UINT64_C(1) << 29)
#define AST_ANSWER_SQUAWK_SMOOTHED (UINT64_C(1) << 30)
#define AST_ANSWER_SQUAWK_CHANGED (UINT64_C(1) << 31)
#define AST_ANSWER_SPI (UINT64_C(1) << 32)
#define AST_ANSWER_EMERGENCY (UINT64_C(1) << 33)
#define AST_ANSWER_ON_GROUND (UINT64_C(1) << 34)
#define AST_ANSWER_SIMULATED (UINT64_C(1) << 35)
#define AST_ANSWER_TEST (UINT64_C(1) << 36)
#define AST_ANSWER_COASTED (UINT64_C(1) << 37)
#define AST_ANSWER_ENDED (UINT64_C(1) << 38)
#define AST_ANSWERS 39 /* how many there are */

/* Kinds of messages. */
#define AST_MESSAGE_PLOT UINT32_C(1)         /* what a sensor has detected */
#define AST_MESSAGE_TRACK UINT32_C(2)        /* what a tracker makes of that */
#define AST_MESSAGE_REPORT UINT32_C(3)       /* what a target says of itself */
#define AST_MESSAGE_NORTH_MARKER UINT32_C(4) /* an antenna turns */
#define AST_MESSAGE_SOUTH_MARKER UINT32_C(5)
#define AST_MESSAGE_SECTOR_CROSSING UINT32_C(6)
#define AST_MESSAGE_UPDATE_CYCLE UINT32_C(7) /* a cycle or batch of reports begins or ends */
#define AST_MESSAGE_STATUS UINT32_C(8)       /* of a sensor, system or service */
#define AST_MESSAGE_STATISTICS UINT32_C(9)
#define AST_MESSAGE_CONFIGURATION UINT32_C(10) /* of a system, and versions of categories */
#define AST_MESSAGE_FILTERING UINT32_C(11)     /* by area */
#define AST_MESSAGE_INTERFERENCE UINT32_C(12)  /* jamming and solar storms */
#define AST_MESSAGE_WEATHER UINT32_C(13)
#define AST_MESSAGE_VIDEO UINT32_C(14)
#define AST_MESSAGE_ALERT UINT32_C(15) /* of a safety net */
#define AST_MESSAGE_FLIGHT_PLAN UINT32_C(16)
#define AST_MESSAGE_COORDINATION UINT32_C(17) /* among the sensors of a cluster */
#define AST_MESSAGE_DATA_LINK UINT32_C(18)
#define AST_MESSAGE_INTERROGATION UINT32_C(19) /* requests of directed interrogation and answers to them */
#define AST_MESSAGE_DIRECTION UINT32_C(20)     /* a radio transmission was detected, or is not any more */
#define AST_MESSAGES 21                        /* above all of them */

/* What range, azimuth, x and y are measured from, and what x and y are. Category documents say little of that: it is
 * what is usual, and the coordinate transformation of tracks (TCC of I007/170, I010/170 and I048/170) where it is sent.
 */
#define AST_FRAME_RADAR UINT32_C(1)      /* a sensor; x and y are made of the slant range */
#define AST_FRAME_TANGENTIAL UINT32_C(2) /* a sensor; x and y are on the plane that touches the earth there */
#define AST_FRAME_SYSTEM UINT32_C(3)     /* a system; x and y are on its stereographic plane, the rest is a sensor's */

/* How latitude and longitude came about, beside the record: bits of ast_answers_t.located, set by ast_sites_locate. */
#define AST_LOCATED_BY_SITE UINT32_C(1)     /* they were worked out from the place of the data source (sites.h) */
#define AST_LOCATED_ON_GROUND UINT32_C(2)   /* without a height, as if the target was as high as the sensor */
#define AST_LOCATED_BY_ESTIMATE UINT32_C(4) /* that place itself is only worked out */

/** What is known beside the record. All zero is nothing. */
typedef struct {
    bool has_reception;   /* reception_ns is known */
    int64_t reception_ns; /* when the record was received, nanoseconds since 1970, UTC */
    uint64_t reserved[6]; /* 0 */
} ast_answer_context_t;

/** Room for a callsign and its terminator. */
#define AST_ANSWER_CALLSIGN_CAPACITY 9

/** The answers of a record. A member means something where its bit is set in `present`, and is 0, empty or false where
 *  it is not: AST_ANSWER_SPI says that the record tells whether there is SPI, and `spi` what it tells. */
typedef struct {
    uint64_t present;     /* AST_ANSWER_... */
    int64_t timestamp_ns; /* since 1970, UTC: the time of day on the day that brings it closest to reception */
    double time_of_day_s; /* since midnight, UTC, below 86400; what the position is of, where there are several */
    double fl;            /* flight level, -15 and up as a rule; not of a code that is garbled or not validated */
    double altitude_ft;   /* geometric: above the ellipsoid (ADS-B, multilateration) or mean sea level (radar) */
    double selected_altitude_ft; /* the crew's */
    double latitude_deg;         /* of the target, WGS-84, -90 to 90 */
    double longitude_deg;        /* -180 to 180 */
    double range_nm;             /* slant range as measured by the sensor; of category 062, by that of I062/340 */
    double azimuth_deg;          /* clockwise from north, 0 to 360; of category 205, the bearing of the transmission */
    double x_nm;                 /* to the east in the sensor's or system's plane */
    double y_nm;                 /* to the north */
    double groundspeed_kt;       /* 0 and up */
    double track_deg;            /* where it moves to, clockwise from north, 0 to 360 */
    double magnetic_heading_deg; /* where it points to, 0 to 360 */
    double true_heading_deg;     /* 0 to 360 */
    double vertical_rate_ftmin;  /* positive when climbing */
    double roll_deg;             /* positive with the right wing down */
    double true_airspeed_kt;     /* as the aircraft tells it, as the next two */
    double indicated_airspeed_kt;
    double mach;
    uint32_t category;     /* of the record */
    uint32_t sac;          /* System Area Code of the data source */
    uint32_t sic;          /* System Identification Code of the data source */
    uint32_t type;         /* AST_MESSAGE_... */
    uint32_t track_number; /* of category 001 and 015, that of a plot, too */
    uint32_t squawk;       /* Mode 3/A code, 12 bits: four octal digits */
    uint32_t icao24;       /* aircraft address, 24 bits; also one that is not ICAO's, as ADS-B may have it */
    char callsign[AST_ANSWER_CALLSIGN_CAPACITY]; /* identification without blanks at its end; '?' where not printable */
    bool squawk_validated;                       /* the code was received alike more than once */
    bool squawk_garbled;                         /* replies overlapped */
    bool squawk_smoothed;                        /* by a tracker, or not extracted in the last scan */
    bool squawk_changed;                         /* the code is another than before, as I062/060 tells */
    bool spi;                                    /* special position identification */
    bool emergency;   /* a field says so, or the code is 7500, 7600 or 7700, neither garbled nor not
                         validated; military emergencies and priority as with minimum fuel included */
    bool on_ground;   /* it is on the ground, or has said so */
    bool simulated;   /* made by a simulator, of no real target */
    bool test;        /* test target */
    bool coasted;     /* extrapolated, not detected */
    bool ended;       /* the last report of a track */
    uint32_t frame;   /* AST_FRAME_..., 0 where it is not known */
    uint32_t located; /* AST_LOCATED_..., 0 for a position of the record's own */
} ast_answers_t;

/** Answers what a record answers. A value that its field says is not valid, exceeded its range or is not known is no
 *  answer; neither are times of 24 hours and above, positions off the globe, and callsigns of blanks.
 *  record   a decoded record; null, or one that is not valid, answers nothing
 *  context  null for nothing known: then there is no timestamp, nor a time of category 001, whose truncated time of day
 *           is completed to the one closest to reception
 *  answers  written whole; null asks nothing
 *  Returns answers.present, 0 for a null struct. */
AST_API uint64_t ast_datarecord_get_answers(const ast_datarecord_t *record, const ast_answer_context_t *context,
                                            ast_answers_t *answers);

/** Whether a record says what cannot be: a time of day of 24 hours or more, a position off the globe, a flight level
 * below -15 or above 1500, or a ground speed above 4000 kt. One such record may be damaged; a source most of whose
 * records are so sends another edition, or another format, than they were decoded by. False for null and what is not
 * valid. */
AST_API bool ast_datarecord_is_implausible(const ast_datarecord_t *record);

/** The name of an answer by its bit, constant: "timestamp", "time", "category", "sac", "sic", "type", "track_number",
 *  "squawk", "callsign", "icao24", "fl", "altitude_ft", "selected_altitude_ft", "latitude", "longitude", "range_nm",
 *  "azimuth_deg", "x_nm", "y_nm", "groundspeed_kt", "track_deg", "magnetic_heading_deg", "true_heading_deg",
 *  "vertical_rate_ftmin", "roll_deg", "true_airspeed_kt", "indicated_airspeed_kt", "mach", "squawk_validated",
 *  "squawk_garbled", "squawk_smoothed", "squawk_changed", "spi", "emergency", "on_ground", "simulated", "test",
 *  "coasted", "ended". Empty for anything but one of these bits. */
AST_API const char *ast_answer_to_str(uint64_t answer);

/** The bit of an answer by its name; 0 for another name, or null. */
AST_API uint64_t ast_answer_from_str(const char *name);

/** The name of a kind of message, constant: "plot", "north marker". Empty for an unknown one. */
AST_API const char *ast_message_to_str(uint32_t type);

AST_END_DECLARATIONS

#endif
