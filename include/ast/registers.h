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
    uint32_t format_type_code;
    uint32_t surveillance_status;
    bool single_antenna;
    bool gnss_height;
    int32_t altitude_ft; /* LSB 25 ft with the Q bit, 100 ft without */
    bool time;
    bool cpr_odd;
    uint32_t cpr_latitude;  /* 17 bits */
    uint32_t cpr_longitude; /* 17 bits */
} ast_bds_05_t;

/** BDS 0,8 identification and category. */
typedef struct {
    bool valid;
    uint32_t format_type_code;
    uint32_t emitter_category; /* two bits */
    char callsign[9];
} ast_bds_08_t;

/** BDS 0,9 airborne velocity. Format type code 19 and subtypes 1 to 4 decode. */
typedef struct {
    bool valid;
    uint32_t format_type_code;
    uint32_t subtype;
    bool intent_change;
    uint32_t nacv;
    bool velocity_valid; /* both components are given; subtypes 1 and 2 */
    bool west;
    uint32_t east_west_velocity_kt;
    bool south;
    uint32_t north_south_velocity_kt;
    bool vertical_rate_barometric; /* its source; geometric otherwise */
    bool vertical_rate_down;
    bool vertical_rate_valid;
    uint32_t vertical_rate_ft_min;
    bool height_difference_below; /* geometric below barometric */
    bool height_difference_valid;
    uint32_t height_difference_ft;
} ast_bds_09_t;

/** BDS 1,0 data link capability. */
typedef struct {
    bool valid;
    bool continuation;
    bool overlay_tcas;
    uint32_t subnetwork_version;
    bool enhanced_protocol;
    bool specific_services;
    uint32_t uplink_elm;   /* code of the average throughput */
    uint32_t downlink_elm; /* code of the throughput */
    bool aircraft_identification;
    bool squitter;
    bool surveillance_identifier;
    bool common_usage_gicb;
} ast_bds_10_t;

/** BDS 2,0 aircraft identification. Decodes when the first octet is 0x20. */
typedef struct {
    bool valid;
    char callsign[9];
} ast_bds_20_t;

/** BDS 3,0 ACAS resolution advisory. */
typedef struct {
    bool valid;
    bool ara_present;
    bool rac_present;
    bool ra_terminated;
    bool multiple_threat;
    uint8_t threat_type;       /* 0 none, 1 address, 2 altitude, range and bearing */
    uint8_t threat_address[3]; /* for threat type 1 */
} ast_bds_30_t;

/** BDS 4,0 selected vertical intention. */
typedef struct {
    bool valid;
    bool mcp_fcu_status;
    uint32_t mcp_fcu_altitude_ft; /* LSB 16 ft */
    bool fms_status;
    uint32_t fms_altitude_ft; /* LSB 16 ft */
    bool barometric_status;
    double barometric_setting_mb; /* 800 + LSB 0.1 mb */
    bool mode_status;
    bool vnav;
    bool altitude_hold;
    bool approach;
    bool target_source_status;
    uint32_t target_source; /* the selected altitude source enumeration */
} ast_bds_40_t;

/** BDS 5,0 track and turn. */
typedef struct {
    bool valid;
    bool roll_status;
    bool roll_sign;
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
    bool heading_status;
    bool heading_sign;
    double magnetic_heading_deg; /* LSB 90/512 degrees, 180 more when the sign is set */
    bool ias_status;
    uint32_t indicated_airspeed_kt;
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
