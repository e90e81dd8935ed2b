/* Mode S registers: Comm-B replies by BDS code.
 *
 * A reply is 56 bits from a transponder register, which its BDS code names. Bits are numbered 1 to 56 from the
 * most significant bit of the first octet. A register decoder returns its record with valid set for a valid register of
 * its number and seven octets, and all zero otherwise; a field whose status is false stays 0. */
#ifndef AST_REGISTERS_H
#define AST_REGISTERS_H

#include "values.h"

AST_BEGIN_DECLARATIONS

/** BDS 0,5 airborne position. Format type codes 9 to 18 and 20 to 22 decode; any other is kept, not valid. */
typedef struct {
    bool valid;
    uint32_t format_type_code;    /* 9 to 18 with a barometric altitude, 20 to 22 with a GNSS height */
    uint32_t surveillance_status; /* 0 nothing to report, 1 permanent alert, 2 temporary alert, 3 SPI */
    bool single_antenna;          /* bit 8: a single antenna, or NIC supplement-B of newer transponders */
    bool gnss_height;             /* altitude_ft is a GNSS height, a barometric altitude otherwise */
    int32_t altitude_ft;          /* LSB 25 ft with the Q bit, 100 ft without */
    bool time;                    /* the position is of a time synchronized to UTC */
    bool cpr_odd;                 /* the position is encoded in the odd format, in the even one otherwise */
    uint32_t cpr_latitude;        /* 17 bits */
    uint32_t cpr_longitude;       /* 17 bits */
} ast_bds_05_t;

/** BDS 0,8 identification and category. */
typedef struct {
    bool valid;
    uint32_t format_type_code; /* the set of the category: 4 is A, 3 is B, 2 is C, 1 is D */
    uint32_t emitter_category; /* two bits */
    char callsign[9];          /* eight characters, blanks at the end kept */
} ast_bds_08_t;

/** BDS 0,9 airborne velocity. Format type code 19 and subtypes 1 to 4 decode. */
typedef struct {
    bool valid;
    uint32_t format_type_code; /* 19 where it is valid */
    uint32_t subtype;    /* ground speed: 1 subsonic, 2 supersonic; airspeed, which is not read: 3 and 4 the same */
    bool intent_change;  /* the aircraft's intent has changed */
    uint32_t nacv;       /* navigation accuracy category of the velocity, 0 to 7 */
    bool velocity_valid; /* both components are given; subtypes 1 and 2 */
    bool west;           /* the velocity is to the west, to the east otherwise */
    uint32_t east_west_velocity_kt;   /* without its sign; LSB 1 kt in subtype 1, 4 kt in subtype 2 */
    bool south;                       /* the velocity is to the south, to the north otherwise */
    uint32_t north_south_velocity_kt; /* as east_west_velocity_kt */
    bool vertical_rate_barometric;    /* its source; geometric otherwise */
    bool vertical_rate_down;          /* descending */
    bool vertical_rate_valid;         /* the rate is given; it is 0 otherwise */
    uint32_t vertical_rate_ft_min;    /* without its sign, LSB 64 ft/min */
    bool height_difference_below;     /* geometric below barometric */
    bool height_difference_valid;     /* the difference is given; it is 0 otherwise */
    uint32_t height_difference_ft;    /* without its sign, LSB 25 ft */
} ast_bds_09_t;

/** BDS 1,0 data link capability. */
typedef struct {
    bool valid;
    bool continuation;            /* register 1,1 continues the report */
    bool overlay_tcas;            /* bit 16, ACAS is operational; the overlay command capability, bit 15, is not read */
    uint32_t subnetwork_version;  /* of Mode S: 0 none, 1 ICAO Annex 10 of 1996, 2 of 1998, 3 of 2002, 4 of 2007 */
    bool enhanced_protocol;       /* transponder of level 5, of level 2 to 4 otherwise */
    bool specific_services;       /* Mode S specific services are supported */
    uint32_t uplink_elm;          /* code of the average throughput: 0 none, 1 to 6 ever more segments a second */
    uint32_t downlink_elm;        /* code of the throughput: 0 none, 1 to 6 ever more segments a second */
    bool aircraft_identification; /* the identification is given in register 2,0 */
    bool squitter;                /* squitter capability (SCS): positions for extended squitter are kept up to date */
    bool surveillance_identifier; /* surveillance identifier codes (SIC) are supported */
    bool common_usage_gicb;       /* toggles whenever register 1,7 changes */
} ast_bds_10_t;

/** BDS 2,0 aircraft identification. Decodes when the first octet is 0x20. */
typedef struct {
    bool valid;
    char callsign[9]; /* eight characters, blanks at the end kept */
} ast_bds_20_t;

/** BDS 3,0 ACAS resolution advisory. */
typedef struct {
    bool valid;
    bool ara_present;          /* an advisory (ARA) is given: any of bits 9 to 22 */
    bool rac_present;          /* complements (RAC) are given: any of bits 23 to 26 */
    bool ra_terminated;        /* ACAS has ended the advisory */
    bool multiple_threat;      /* two or more threats are involved */
    uint8_t threat_type;       /* 0 none, 1 address, 2 altitude, range and bearing */
    uint8_t threat_address[3]; /* for threat type 1 */
} ast_bds_30_t;

/** BDS 4,0 selected vertical intention. */
typedef struct {
    bool valid;
    /* Each status is a bit that says whether the field behind it is given. */
    bool mcp_fcu_status;
    uint32_t mcp_fcu_altitude_ft; /* LSB 16 ft */
    bool fms_status;
    uint32_t fms_altitude_ft; /* LSB 16 ft */
    bool barometric_status;
    double barometric_setting_mb; /* 800 + LSB 0.1 mb */
    bool mode_status;
    bool vnav; /* the mode is active, as the next two */
    bool altitude_hold;
    bool approach;
    bool target_source_status;
    uint32_t target_source; /* for ast_selected_altitude_source_to_str */
} ast_bds_40_t;

/** BDS 5,0 track and turn. */
typedef struct {
    bool valid;
    /* Each status is a bit that says whether the field behind it is given. */
    bool roll_status;
    bool roll_sign;        /* the left wing is down */
    double roll_angle_deg; /* LSB 45/256 degrees, right wing down positive */
    bool track_status;
    bool track_sign;
    double true_track_deg; /* LSB 90/512 degrees, 360 less the magnitude when the sign is set */
    bool ground_speed_status;
    double ground_speed_kt; /* LSB 2 kt */
    bool track_rate_status;
    double track_rate_deg_s; /* LSB 8/256 degrees/s */
    bool airspeed_status;
    uint32_t true_airspeed_kt; /* LSB 2 kt */
} ast_bds_50_t;

/** BDS 6,0 heading and speed. */
typedef struct {
    bool valid;
    /* Each status is a bit that says whether the field behind it is given. */
    bool heading_status;
    bool heading_sign;
    double magnetic_heading_deg; /* LSB 90/512 degrees, 180 more when the sign is set */
    bool ias_status;
    uint32_t indicated_airspeed_kt; /* LSB 1 kt */
    bool mach_status;
    double mach; /* LSB 2.048/512 */
    bool altitude_rate_status;
    double barometric_altitude_rate_ft_min; /* LSB 32 ft/min */
    bool vertical_velocity_status;
    double inertial_vertical_velocity_ft_min; /* LSB 32 ft/min */
} ast_bds_60_t;

/** The register at data: seven octets, not examined, and its number. Valid when seven octets are available. */
AST_API ast_bds_t ast_bds_decode(const uint8_t *data, uint64_t available, uint32_t bds);

/** Each reads a register of its number. */
AST_API ast_bds_05_t ast_bds_05_decode(const ast_bds_t *bds);
AST_API ast_bds_08_t ast_bds_08_decode(const ast_bds_t *bds);
AST_API ast_bds_09_t ast_bds_09_decode(const ast_bds_t *bds);
AST_API ast_bds_10_t ast_bds_10_decode(const ast_bds_t *bds);
AST_API ast_bds_20_t ast_bds_20_decode(const ast_bds_t *bds);
AST_API ast_bds_30_t ast_bds_30_decode(const ast_bds_t *bds);
AST_API ast_bds_40_t ast_bds_40_decode(const ast_bds_t *bds);
AST_API ast_bds_50_t ast_bds_50_decode(const ast_bds_t *bds);
AST_API ast_bds_60_t ast_bds_60_decode(const ast_bds_t *bds);

/** The title of a register, or "UNKNOWN NAME". Constant. */
AST_API const char *ast_bds_get_name(uint32_t bds);

/** "BDS 4,0" for register 64, in a buffer of the calling thread. */
AST_API const char *ast_bds_type_to_str(uint32_t bds);

/** "4,0" for register 64, in another buffer of the calling thread. */
AST_API const char *ast_bds_type_to_str_simple(uint32_t bds);

/** A detail view of one kind of register. */
typedef void ast_bds_detail_html_t(char *text, uint64_t capacity, const ast_bds_t *bds);

/** The detail view of a register; null, reported at level 2, for one that has no decoder above. */
AST_API ast_bds_detail_html_t *ast_bds_get_func(uint32_t bds);

/** The fields of a valid register as an HTML table; empty, reported at level 2, for one without a decoder. */
AST_API void ast_bds_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);

/** A detail view of nothing: the empty text. */
AST_API void ast_bds_get_detail_html_dummy(char *text, uint64_t capacity);

/** The fields of a register of each kind as an HTML table; empty for one that its decoder does not take. */
AST_API void ast_bds_05_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_08_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_09_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_10_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_20_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_30_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_40_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_50_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_60_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);

AST_END_DECLARATIONS

#endif
