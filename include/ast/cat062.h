/* Category 062: system tracks of a surveillance data processing system. */
#ifndef AST_CAT062_H
#define AST_CAT062_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 062, also of one that is known but not registered; "Unknown CAT062 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_062_get_name(ast_dataitem_type_t type);

/** The title of a vehicle fleet 0 to 16 as I062/300 numbers them, "UNDEFINED" for any other. Constant. */
AST_API const char *ast_vehicle_fleet_id_get_name(uint32_t value);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "---" and name "UNKNOWN_SUBFIELD_NAME". Then the decoder, whose record has a
 * member for each subfield, named by its id; and the views of one subfield, which are empty for one that is absent. The
 * summary of a subfield number that the item does not define is "NOT_IMPLEMENTED". */

/** A position in a subfield, two's complement. */
typedef struct {
    bool present;
    int32_t latitude_raw;  /* LSB 180/2^23 degrees */
    int32_t longitude_raw; /* LSB 180/2^23 degrees */
    double latitude_deg;   /* north positive */
    double longitude_deg;  /* east positive */
} ast_062_position_t;

/** A system in a subfield. */
typedef struct {
    bool present;
    uint32_t sac; /* System Area Code, 0 to 255 */
    uint32_t sic; /* System Identification Code, 0 to 255 */
} ast_062_source_t;

/** I062/080, track status. What stands in octets that are not sent is 0. */
typedef struct {
    bool valid;
    bool mon;         /* track of a single sensor */
    bool spi;         /* SPI present in the last report */
    bool mrh;         /* geometric altitude is more reliable than barometric */
    uint32_t src;     /* the source of the geometric altitude in I062/130, for ast_geometric_altitude_source_to_str */
    bool cnf;         /* tentative */
    bool sim;         /* simulated */
    bool tse;         /* last message of the track */
    bool tsb;         /* first message of the track */
    bool fpc;         /* correlated with a flight plan */
    bool aff;         /* ADS-B data inconsistent with other information */
    bool stp;         /* slave track promotion */
    bool kos;         /* background service used, complementary service otherwise */
    bool ama;         /* result of an amalgamation */
    uint32_t md4;     /* the friend-or-foe status by Mode 4, for ast_iff_status_to_str */
    bool me;          /* military emergency */
    bool mi;          /* military identification */
    uint32_t md5;     /* the friend-or-foe status by Mode 5, for ast_iff_status_to_str */
    bool cst;         /* coasting: the last update of any kind is too old, then by kind */
    bool psr;         /* the last PSR update is too old */
    bool ssr;         /* the last SSR update is too old */
    bool mds;         /* the last Mode S update is too old */
    bool ads;         /* the last ADS-B update is too old */
    bool suc;         /* special used code */
    bool aac;         /* assigned Mode A code conflict */
    uint32_t sds;     /* surveillance: 0 combined, 1 co-operative only, 2 non-co-operative only, 3 undefined */
    bool cooperative; /* sds is 1 */
    uint32_t ems;     /* the emergency status, for ast_emergency_status_to_str */
    bool pft;         /* potential false track */
    bool fplt;        /* created or updated with flight plan data */
    bool dupt;        /* duplicate Mode 3/A code */
    bool dupf;        /* duplicate flight plan */
    bool dupm;        /* duplicate flight plan due to manual correlation */
    bool sfc;         /* on the surface */
    bool idd;         /* duplicate flight identification */
    bool iec;         /* inconsistent emergency code */
    bool mlat;        /* the last multilateration update is too old */
} ast_dataitem_062_080_t;
AST_API ast_dataitem_062_080_t ast_dataitem_062_080_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_080_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_080_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/110, Mode 5 data reports and extended Mode 1 code. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        bool m5; /* Mode 5 interrogation */
        bool id; /* authenticated Mode 5 ID reply */
        bool da; /* authenticated Mode 5 data reply or report */
        bool m1; /* the Mode 1 code is from a Mode 5 reply */
        bool m2; /* the Mode 2 code is from a Mode 5 reply */
        bool m3; /* the Mode 3 code is from a Mode 5 reply */
        bool mc; /* the Mode C altitude is from a Mode 5 reply */
        bool x;  /* X-pulse of a Mode 5 data reply or report */
    } sum;       /* Mode 5 summary */
    struct {
        bool present;
        uint32_t pin;       /* PIN code, 14 bits */
        uint32_t nat;       /* national origin, 5 bits */
        uint32_t mis;       /* mission code, 6 bits */
    } pmn;                  /* PIN, national origin and mission */
    ast_062_position_t pos; /* Mode 5 reported position */
    struct {
        bool present;
        bool res;             /* reported in increments of 25 ft, of 100 ft otherwise */
        int32_t altitude_raw; /* LSB 25 ft, two's complement */
        int32_t altitude_ft;  /* feet above the WGS-84 ellipsoid */
    } ga;                     /* GNSS-derived altitude */
    struct {
        bool present;
        uint32_t code; /* 12 bits, shown as octal digits */
    } em1;             /* extended Mode 1 code */
    struct {
        bool present;
        int32_t offset_raw; /* LSB 1/128 s, two's complement */
        double offset_s;    /* seconds after the time of the track */
    } tos;                  /* time offset of pos and ga */
    struct {
        bool present;
        bool x5; /* X-pulse of a Mode 5 data reply or report */
        bool xc; /* X-pulse of a Mode C reply */
        bool x3; /* X-pulse of a Mode 3/A reply */
        bool x2; /* X-pulse of a Mode 2 reply */
        bool x1; /* X-pulse of a Mode 1 reply */
    } xp;        /* X-pulses */
} ast_dataitem_062_110_t;
AST_API uint64_t ast_dataitem_062_110_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_110_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_110_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_110_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_110_t ast_dataitem_062_110_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_110_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_110_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I062/130, calculated geometric altitude; read as magnitude less 32767 when negative. */
typedef struct {
    bool valid;
    int32_t altitude_raw; /* LSB 6.25 ft */
    double altitude_ft;   /* feet */
} ast_dataitem_062_130_t;
AST_API ast_dataitem_062_130_t ast_dataitem_062_130_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_130_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_130_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/135, calculated barometric altitude; read as magnitude less 16383 when negative. */
typedef struct {
    bool valid;
    bool qnh;             /* QNH correction applied */
    int32_t altitude_raw; /* LSB 1/4 FL */
    int32_t altitude_ft;  /* feet */
} ast_dataitem_062_135_t;
AST_API ast_dataitem_062_135_t ast_dataitem_062_135_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_135_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_135_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/136, measured flight level; read as magnitude less 32767 when negative. */
typedef struct {
    bool valid;
    int32_t level_raw; /* LSB 1/4 FL */
    int32_t level_ft;  /* feet */
} ast_dataitem_062_136_t;
AST_API ast_dataitem_062_136_t ast_dataitem_062_136_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_136_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_136_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/200, mode of movement. */
typedef struct {
    bool valid;
    uint32_t transversal;  /* 0 constant course, 1 right turn, 2 left turn, 3 undetermined */
    uint32_t longitudinal; /* 0 constant ground speed, 1 increasing, 2 decreasing, 3 undetermined */
    uint32_t vertical;     /* 0 level, 1 climb, 2 descent, 3 undetermined */
    bool adf;              /* altitude discrepancy */
} ast_dataitem_062_200_t;
AST_API ast_dataitem_062_200_t ast_dataitem_062_200_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_200_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_200_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/210, calculated acceleration. A negative octet reads as its seven lower bits less 32767, far outside of what an
 *  aircraft does: from -8191.75 to -8160 m/s^2. */
typedef struct {
    bool valid;
    int32_t ax_raw; /* LSB 0.25 m/s^2 */
    int32_t ay_raw; /* LSB 0.25 m/s^2 */
    double ax_m_s2; /* metres per second squared, to the east */
    double ay_m_s2; /* metres per second squared, to the north */
} ast_dataitem_062_210_t;
AST_API ast_dataitem_062_210_t ast_dataitem_062_210_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/220, calculated rate of climb or descent; read as magnitude less 32767 when negative. */
typedef struct {
    bool valid;
    int32_t rate_raw;   /* LSB 6.25 ft/min */
    double rate_ft_min; /* feet per minute, climb positive */
} ast_dataitem_062_220_t;
AST_API ast_dataitem_062_220_t ast_dataitem_062_220_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_220_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_220_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/270, target size and orientation. */
typedef struct {
    bool valid;
    uint32_t length_m;        /* metres; the largest dimension where it stands alone */
    bool orientation_present; /* the second octet is sent */
    uint32_t orientation_raw; /* LSB 360/2^7 degrees */
    double orientation_deg;   /* of the nose, degrees from north */
    bool width_present;       /* the third octet is sent */
    uint32_t width_m;         /* metres */
} ast_dataitem_062_270_t;
AST_API ast_dataitem_062_270_t ast_dataitem_062_270_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_270_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_270_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/290, system track update ages. LSB 1/4 s, of one octet each but for ads, which has two. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_age_t trk; /* age of the track itself, s */
    ast_age_t psr; /* s, as all below */
    ast_age_t ssr;
    ast_age_t mds; /* Mode S */
    ast_age_t ads; /* ADS-C */
    ast_age_t es;  /* ADS-B extended squitter */
    ast_age_t vdl; /* ADS-B VDL Mode 4 */
    ast_age_t uat; /* ADS-B UAT */
    ast_age_t lop; /* magnetic loop */
    ast_age_t mlt; /* multilateration */
} ast_dataitem_062_290_t;
AST_API uint64_t ast_dataitem_062_290_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_290_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_290_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_290_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_290_t ast_dataitem_062_290_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_290_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_290_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I062/295, track data ages. LSB 1/4 s, of one octet each. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_age_t mfl; /* measured flight level, I062/136; s, as all below */
    ast_age_t md1; /* Mode 1 */
    ast_age_t md2; /* Mode 2 */
    ast_age_t mda; /* Mode 3/A */
    ast_age_t md4; /* Mode 4 */
    ast_age_t md5; /* Mode 5 */
    ast_age_t mhg; /* from here on what the subfields of I062/380 hold */
    ast_age_t ias;
    ast_age_t tas;
    ast_age_t sal;
    ast_age_t fss;
    ast_age_t tid;
    ast_age_t com;
    ast_age_t sab;
    ast_age_t acs;
    ast_age_t bvr;
    ast_age_t gvr;
    ast_age_t ran;
    ast_age_t tar;
    ast_age_t tan;
    ast_age_t gsp;
    ast_age_t vun;
    ast_age_t met;
    ast_age_t emc;
    ast_age_t pos;
    ast_age_t gal;
    ast_age_t pun;
    ast_age_t mb;
    ast_age_t iar;
    ast_age_t mac;
    ast_age_t bps;
} ast_dataitem_062_295_t;
AST_API uint64_t ast_dataitem_062_295_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_295_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_295_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_295_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_295_t ast_dataitem_062_295_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_295_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_295_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I062/300, vehicle fleet identification. */
typedef struct {
    bool valid;
    uint32_t raw;   /* the octet */
    uint32_t fleet; /* 0 to 16; 0, unknown, for any other octet */
} ast_dataitem_062_300_t;
AST_API ast_dataitem_062_300_t ast_dataitem_062_300_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_300_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_300_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I062/340, measured information: the last report that updated the track. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_062_source_t sid; /* the sensor */
    struct {
        bool present;
        uint32_t rho_raw;   /* LSB 1/256 NM */
        uint32_t theta_raw; /* LSB 360/2^16 degrees */
        double rho_nm;      /* nautical miles */
        double theta_deg;   /* degrees from north */
    } pos;                  /* the measured position, from the sensor */
    struct {
        bool present;
        int32_t height_raw; /* LSB 25 ft, two's complement */
        int32_t height_ft;  /* feet */
    } hei;                  /* 3D height */
    struct {
        bool present;
        bool not_validated;   /* the height was not received alike more than once */
        bool garbled;         /* replies overlapped */
        int32_t flight_level; /* in quarter levels, LSB 1/4 FL or 25 ft, two's complement */
    } mdc;                    /* Mode C code */
    struct {
        bool present;
        bool not_validated; /* the code was not received alike more than once */
        bool garbled;       /* replies overlapped */
        bool smoothed;      /* from the sensor's local tracker */
        uint32_t code;      /* 12 bits, shown as four octal digits */
    } mda;                  /* Mode 3/A code */
    struct {
        bool present;
        uint32_t typ; /* as typ of I048/020 */
        bool sim;     /* simulated */
        bool rab;     /* from a fixed transponder */
        bool tst;     /* test target */
    } typ;            /* report type */
} ast_dataitem_062_340_t;
AST_API uint64_t ast_dataitem_062_340_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_340_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_340_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_340_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_340_t ast_dataitem_062_340_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_340_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_340_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** An angle of a full circle in a subfield. */
typedef struct {
    bool present;
    uint32_t angle_raw; /* LSB 360/2^16 degrees */
    double angle_deg;   /* degrees from north */
} ast_062_angle_t;

/** An airspeed in a subfield. */
typedef struct {
    bool present;
    uint32_t airspeed_kt; /* knots */
} ast_062_airspeed_t;

/** A vertical rate in a subfield, two's complement. */
typedef struct {
    bool present;
    int32_t rate_raw;   /* LSB 6.25 ft/min */
    double rate_ft_min; /* feet per minute, climb positive */
} ast_062_vertical_rate_t;

/** A point of an aircraft's intended trajectory. */
typedef struct {
    bool tca;              /* the point has no number */
    bool nc;               /* the aircraft will not fly by it */
    uint32_t tcpn;         /* its number, from 0 */
    int32_t altitude_raw;  /* LSB 10 ft, two's complement */
    int32_t altitude_ft;   /* feet */
    int32_t latitude_raw;  /* LSB 180/2^23 degrees, two's complement */
    int32_t longitude_raw; /* LSB 180/2^23 degrees, two's complement */
    double latitude_deg;   /* north positive */
    double longitude_deg;  /* east positive */
    uint32_t pt;           /* type of the point: 0 unknown, 1 fly by, 2 fly over, 3 hold pattern, ..., 11 */
    uint32_t td;           /* turn: 0 none given, 1 right, 2 left, 3 no turn */
    bool tra;              /* the turn radius is available */
    bool toa;              /* the time over the point is not available */
    uint32_t tov_s;        /* time over the point, seconds since midnight */
    uint32_t ttr_raw;      /* turn radius, LSB 0.01 NM */
    double ttr_nm;         /* nautical miles */
} ast_062_trajectory_point_t;

#define AST_062_380_MAX_POINTS 16

/** I062/380, aircraft derived data. A repeated subfield may carry more than there is room for: its array holds the
 *  lesser of count, which is REP as sent, and AST_062_380_MAX_POINTS or AST_MODES_MB_MAX_REGISTERS. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t address; /* 24 bits */
    } adr;                /* target address */
    struct {
        bool present;
        char text[9];    /* eight characters, trailing blanks kept */
    } id;                /* target identification */
    ast_062_angle_t mhg; /* magnetic heading, degrees */
    struct {
        bool present;
        bool im;            /* a Mach number, an indicated airspeed otherwise; the other one is 0 */
        uint32_t speed_raw; /* 15 bits, LSB 2^-14 NM/s or 0.001 */
        double airspeed_kt; /* knots */
        double mach;        /* Mach number */
    } ias;                  /* indicated airspeed or Mach number */
    ast_062_airspeed_t tas; /* true airspeed, knots */
    struct {
        bool present;
        bool sas;             /* the source is given */
        uint32_t src;         /* the source, for ast_selected_altitude_source_to_str */
        int32_t altitude_raw; /* LSB 25 ft, two's complement */
        int32_t altitude_ft;  /* feet */
    } sal;                    /* selected altitude */
    struct {
        bool present;
        bool mv;              /* manage vertical mode */
        bool ah;              /* altitude hold */
        bool am;              /* approach mode */
        int32_t altitude_raw; /* LSB 25 ft, two's complement */
        int32_t altitude_ft;  /* feet */
    } fss;                    /* final state selected altitude */
    struct {
        bool present;
        bool nav; /* trajectory intent data is not available */
        bool nvb; /* trajectory intent data is not valid */
    } tis;        /* trajectory intent status */
    struct {
        bool present;
        uint64_t count;                                            /* REP, as sent */
        ast_062_trajectory_point_t points[AST_062_380_MAX_POINTS]; /* those that fit */
    } tid;                                                         /* trajectory intent data */
    struct {
        bool present;
        uint32_t com;  /* the transponder communications capability, for ast_transponder_comm_cap_to_str */
        uint32_t stat; /* the flight status, for ast_radar_flight_status_to_str */
        bool ssc;      /* specific service capability */
        bool arc;      /* altitude in steps of 25 ft, of 100 ft otherwise */
        bool aic;      /* aircraft identification capability */
        bool b1a;      /* bit 16 of register 1,0 */
        uint8_t b1b;   /* bits 37 to 40 of register 1,0 */
    } com;             /* communications and ACAS capability, flight status */
    struct {
        bool present;
        uint32_t ac;   /* the ACAS status, for ast_acas_status_to_str */
        uint32_t mn;   /* the multiple navigation aids status, for ast_multi_navids_status_to_str */
        uint32_t dc;   /* the differential correction status, for ast_diff_correction_status_to_str */
        bool gbs;      /* ground bit set */
        uint32_t stat; /* the emergency status, for ast_emergency_status_to_str */
    } sab;             /* status reported by ADS-B */
    struct {
        bool present;
        ast_bds_t bds;           /* register 3,0 */
    } acs;                       /* ACAS resolution advisory */
    ast_062_vertical_rate_t bvr; /* barometric, feet per minute */
    ast_062_vertical_rate_t gvr; /* geometric, feet per minute */
    struct {
        bool present;
        int32_t roll_raw; /* LSB 0.01 degrees, two's complement */
        double roll_deg;  /* degrees, right positive */
    } ran;                /* roll angle */
    struct {
        bool present;
        uint32_t ti;       /* turn: 0 not available, 1 left, 2 right, 3 straight */
        int32_t rate_raw;  /* LSB 1/4 degrees/s, two's complement */
        double rate_deg_s; /* degrees per second, right positive */
    } tar;                 /* track angle rate */
    ast_062_angle_t tan;   /* track angle, degrees */
    struct {
        bool present;
        int32_t speed_raw; /* LSB 2^-14 NM/s, two's complement */
        double speed_kt;   /* knots */
    } gsp;                 /* ground speed */
    struct {
        bool present;
        uint32_t category; /* 0 to 255 */
    } vun;                 /* velocity uncertainty */
    struct {
        bool present;
        bool ws;                     /* the wind speed is valid */
        bool wd;                     /* the wind direction is valid */
        bool tmp;                    /* the temperature is valid */
        bool trb;                    /* the turbulence is valid */
        uint32_t wind_speed_kt;      /* knots */
        uint32_t wind_direction_deg; /* degrees */
        int32_t temperature_raw;     /* LSB 0.25 degrees Celsius, two's complement */
        double temperature_c;        /* degrees Celsius */
        uint32_t turbulence;         /* 0 to 15 */
    } met;                           /* meteorological data */
    struct {
        bool present;
        uint32_t category;  /* for ast_emitter_category_to_str */
    } emc;                  /* emitter category */
    ast_062_position_t pos; /* degrees */
    struct {
        bool present;
        int32_t altitude_raw; /* LSB 6.25 ft, two's complement */
        double altitude_ft;   /* feet */
    } gal;                    /* geometric altitude */
    struct {
        bool present;
        uint32_t category; /* 0 to 15 */
    } pun;                 /* position uncertainty */
    struct {
        bool present;
        uint64_t count;                                  /* REP, as sent */
        ast_bds_t registers[AST_MODES_MB_MAX_REGISTERS]; /* those that fit */
    } mb;                                                /* Mode S registers */
    ast_062_airspeed_t iar;                              /* indicated airspeed, knots */
    struct {
        bool present;
        uint32_t mach_raw; /* LSB 0.008 */
        double mach;       /* Mach number */
    } mac;                 /* Mach number, which ias may be as well */
    struct {
        bool present;
        uint32_t pressure_raw; /* LSB 0.1 mb above 800 mb, 12 bits */
        double pressure_mb;    /* millibars */
    } bps;                     /* barometric pressure setting */
} ast_dataitem_062_380_t;
AST_API uint64_t ast_dataitem_062_380_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_380_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_380_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_380_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_380_t ast_dataitem_062_380_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_380_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_380_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** A text in a subfield, as sent: the characters that its subfield has, blanks at the end kept. It comes from the
 *  network and may hold any octets; the views show what cannot be printed as blanks and escape what HTML gives a
 *  meaning. */
typedef struct {
    bool present;
    char text[8]; /* terminated */
} ast_062_text_t;

#define AST_062_390_MAX_TIMES 16

/** I062/390, flight plan related data. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_062_source_t tag; /* the flight plan processing system */
    ast_062_text_t csn;   /* callsign */
    struct {
        bool present;
        uint32_t typ; /* 0 plan number, 1 to 3 flight number of that unit */
        uint32_t nbr; /* the number, 27 bits; 99999999 is the largest that is defined */
    } ifi;            /* flight plan identification */
    struct {
        bool present;
        uint32_t gat_oat; /* 0 unknown, 1 general air traffic, 2 operational, 3 not applicable */
        uint32_t fr;      /* flight rules: 0 instrument, 1 visual, 2 not applicable, 3 controlled visual */
        uint32_t rvsm;    /* 0 unknown, 1 approved, 2 exempt, 3 not approved */
        bool hpr;         /* high priority */
    } fct;                /* flight category */
    ast_062_text_t tac;   /* type of aircraft */
    ast_062_text_t wtc;   /* wake turbulence category */
    ast_062_text_t dep;   /* departure airport */
    ast_062_text_t dst;   /* destination airport */
    ast_062_text_t rds;   /* runway: two digits and a letter */
    struct {
        bool present;
        uint32_t level_raw; /* LSB 1/4 FL */
        uint32_t level_ft;  /* feet */
    } cfl;                  /* cleared flight level */
    struct {
        bool present;
        uint32_t centre;   /* the group, 8 bits */
        uint32_t position; /* the control position, 8 bits */
    } ctl;                 /* control position that has the flight now */
    struct {
        bool present;
        uint64_t count; /* REP, as sent; times holds the lesser of it and AST_062_390_MAX_TIMES */
        struct {
            uint32_t typ;    /* what happens: 0 scheduled off-block time, 1 estimated off-block time, ..., 13 */
            uint32_t day;    /* 0 today, 1 yesterday, 2 tomorrow, 3 invalid */
            uint32_t hour;   /* as sent, 0 to 31 */
            uint32_t minute; /* as sent, 0 to 63 */
            bool avs;        /* the seconds are not available */
            uint32_t second; /* as sent, 0 to 63 */
        } times[AST_062_390_MAX_TIMES]; /* those that fit */
    } tod;                              /* times of departure and arrival */
    ast_062_text_t ast;                 /* aircraft stand */
    struct {
        bool present;
        uint32_t emp;   /* 0 empty, 1 occupied, 2 unknown, 3 invalid */
        uint32_t avl;   /* 0 available, 1 not available, 2 unknown, 3 invalid */
    } sts;              /* stand status */
    ast_062_text_t std; /* standard instrument departure */
    ast_062_text_t sta; /* standard instrument arrival */
    struct {
        bool present;
        bool va;        /* the code is valid; it means nothing otherwise */
        uint32_t code;  /* 12 bits, shown as four octal digits */
    } pem;              /* pre-emergency Mode 3/A code */
    ast_062_text_t pec; /* pre-emergency callsign */
} ast_dataitem_062_390_t;
AST_API uint64_t ast_dataitem_062_390_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_390_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_390_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_390_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_390_t ast_dataitem_062_390_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_390_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_390_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I062/500, estimated accuracies. The largest raw value means that much or more. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t x_raw; /* LSB 0.5 m */
        uint32_t y_raw; /* LSB 0.5 m */
        double x_m;     /* metres */
        double y_m;     /* metres */
    } apc;              /* position, Cartesian */
    struct {
        bool present;
        int32_t covariance_raw; /* LSB 0.5 m, two's complement */
        double covariance_m;    /* metres: the root of the covariance, with its sign */
    } cov;                      /* covariance of x and y of the position */
    struct {
        bool present;
        uint32_t latitude_raw;  /* LSB 180/2^25 degrees */
        uint32_t longitude_raw; /* LSB 180/2^25 degrees */
        double latitude_deg;    /* degrees */
        double longitude_deg;   /* degrees */
    } apw;                      /* position, WGS-84 */
    struct {
        bool present;
        uint32_t altitude_raw; /* LSB 6.25 ft */
        double altitude_ft;    /* feet */
    } aga;                     /* geometric altitude */
    struct {
        bool present;
        uint32_t altitude_raw; /* LSB 1/4 FL */
        double altitude_ft;    /* feet */
    } aba;                     /* barometric altitude */
    struct {
        bool present;
        uint32_t x_raw; /* LSB 0.25 m/s */
        uint32_t y_raw; /* LSB 0.25 m/s */
        double x_m_s;   /* metres per second */
        double y_m_s;   /* metres per second */
    } atv;              /* velocity */
    struct {
        bool present;
        uint32_t x_raw; /* LSB 0.25 m/s^2 */
        uint32_t y_raw; /* LSB 0.25 m/s^2 */
        double x_m_s2;  /* metres per second squared */
        double y_m_s2;  /* metres per second squared */
    } aa;               /* acceleration */
    struct {
        bool present;
        uint32_t rate_raw;  /* LSB 6.25 ft/min */
        double rate_ft_min; /* feet per minute */
    } arc;                  /* rate of climb or descent */
} ast_dataitem_062_500_t;
AST_API uint64_t ast_dataitem_062_500_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_500_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_500_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_500_get_name(uint32_t subfield_type);
AST_API ast_dataitem_062_500_t ast_dataitem_062_500_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_062_500_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_062_500_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

#define AST_062_510_MAX_TRACKS 16

/** I062/510, composed track number: the master track first, then its slaves. An item of a size that is no multiple of
 *  three octets, or of more than 16 tracks, is not valid. */
typedef struct {
    bool valid;
    uint32_t count; /* 1 to 16 */
    struct {
        uint32_t unit;                /* system unit identification, 0 to 255 */
        uint32_t track_number;        /* system track number, 15 bits */
    } tracks[AST_062_510_MAX_TRACKS]; /* the first count are meaningful */
} ast_dataitem_062_510_t;
AST_API ast_dataitem_062_510_t ast_dataitem_062_510_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_062_510_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_062_510_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Parts of three octets, chained by bit 1 of the third. Never 0: where less is available than a part needs, the chain
 *  ends with the part before it, and the first part always counts. */
AST_API uint64_t ast_dataitem_062_510_get_size(const uint8_t *data, uint64_t available);

/* What a valid record of category 062 says of the common quantities, each from the first item of its kind; all zero, or
 * as said, when there is none. */

/** I062/010. SAC and SIC 0xFFFFFFFF when not valid. */
AST_API ast_sac_sic_t ast_datarecord_062_get_sacsic(const ast_datarecord_t *record);
/** I062/070. */
AST_API ast_time_of_day_t ast_datarecord_062_get_timeofday(const ast_datarecord_t *record);
/** A track, for every valid record. */
AST_API ast_uint_value_t ast_datarecord_062_get_msgtype(const ast_datarecord_t *record);
/** I062/040. Value 0xFFFFFFFF when not valid. */
AST_API ast_uint_value_t ast_datarecord_062_get_tracknum(const ast_datarecord_t *record);
/** I062/060. Code 0xFFFFFFFF when not valid. `smoothed` tells that the code has changed. */
AST_API ast_squawk_t ast_datarecord_062_get_squawk(const ast_datarecord_t *record);
/** ID of I062/380, trailing blanks kept. */
AST_API ast_aircraft_id_t ast_datarecord_062_get_callsign(const ast_datarecord_t *record);
/** ADR of I062/380. Address 0xFFFFFFFF when not valid. */
AST_API ast_icao_address_t ast_datarecord_062_get_icaoaddr(const ast_datarecord_t *record);
/** I062/105. */
AST_API ast_coordinate_t ast_datarecord_062_get_coordinate(const ast_datarecord_t *record);
/** I062/136, else I062/135, else I062/130, in feet. */
AST_API ast_quantity_t ast_datarecord_062_get_flightlevel(const ast_datarecord_t *record);
/** SAL of I062/380, else its FSS, in feet. */
AST_API ast_quantity_t ast_datarecord_062_get_selaltitude(const ast_datarecord_t *record);
/** MHG of I062/380 as magnetic heading and its TAN as track angle, in degrees, -1 for each that is not valid. */
AST_API ast_heading_t ast_datarecord_062_get_heading(const ast_datarecord_t *record);
/** GSP of I062/380, else its TAS, else its IAS where that is no Mach number, in knots. */
AST_API ast_quantity_t ast_datarecord_062_get_speed(const ast_datarecord_t *record);
/** I062/185. */
AST_API ast_cartesian_velocity_t ast_datarecord_062_get_cartesianvel(const ast_datarecord_t *record);
/** I062/220, in feet per minute. */
AST_API ast_quantity_t ast_datarecord_062_get_vrate(const ast_datarecord_t *record);

/** A record of category 062 with one member per item. I062/245 and I062/390 have none. */
typedef struct {
    bool valid;
    ast_sac_sic_t data_source;                     /* I062/010 */
    ast_uint_value_t service_id;                   /* I062/015 */
    ast_uint_value_t track_number;                 /* I062/040 */
    ast_mode_3a_t mode_3a;                         /* I062/060 */
    ast_time_of_day_t time_of_track;               /* I062/070 */
    ast_dataitem_062_080_t track_status;           /* I062/080 */
    ast_value_pair_t cartesian_position;           /* I062/100 */
    ast_value_pair_t wgs84_position;               /* I062/105 */
    ast_dataitem_062_110_t mode_5;                 /* I062/110 */
    ast_mode_3a_t mode_2;                          /* I062/120 */
    ast_dataitem_062_130_t geometric_altitude;     /* I062/130 */
    ast_dataitem_062_135_t barometric_altitude;    /* I062/135 */
    ast_dataitem_062_136_t measured_flight_level;  /* I062/136 */
    ast_value_pair_t cartesian_velocity;           /* I062/185 */
    ast_dataitem_062_200_t mode_of_movement;       /* I062/200 */
    ast_dataitem_062_210_t cartesian_acceleration; /* I062/210 */
    ast_dataitem_062_220_t rate_of_climb;          /* I062/220 */
    ast_dataitem_062_270_t target_size;            /* I062/270 */
    ast_dataitem_062_290_t update_ages;            /* I062/290 */
    ast_dataitem_062_295_t data_ages;              /* I062/295 */
    ast_dataitem_062_300_t vehicle_fleet;          /* I062/300 */
    ast_dataitem_062_340_t measured_information;   /* I062/340 */
    ast_dataitem_062_380_t aircraft_derived_data;  /* I062/380 */
    ast_dataitem_062_500_t estimated_accuracies;   /* I062/500 */
    ast_dataitem_062_510_t composed_track_number;  /* I062/510 */
} ast_datarecord_062_t;

/** Fills flat, whatever it held, with the items of a valid record of category 062, and returns it; all zero for any
 *  other record, null for null. Of several items of a type the last one stays; types without a member are logged. */
AST_API ast_datarecord_062_t *ast_datarecord_062_disassemble(ast_datarecord_062_t *flat,
                                                             const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
