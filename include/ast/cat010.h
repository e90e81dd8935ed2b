/* Category 010: monosensor surface movement reports, edition 1.1. */
#ifndef AST_CAT010_H
#define AST_CAT010_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 010, also of one that is known but not registered; "Unknown CAT010 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_010_get_name(ast_dataitem_type_t type);

/** I010/000, message type: 1 target report, 2 start of update cycle, 3 periodic status, 4 status after an event. */
AST_API void ast_dataitem_010_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I010/020, target report descriptor. What stands in an octet that was not sent is 0 or false: a loop status and a
 * type of target of 0 are undetermined. */
typedef struct {
    bool valid;
    uint32_t typ; /* 0 SSR multilateration, 1 Mode S multilateration, 2 ADS-B, 3 PSR, 4 magnetic loop, 5 HF
                     multilateration, 7 other */
    bool dcr;     /* differential correction */
    uint32_t chn; /* chain, 1 (by default, also for 0) or 2 */
    bool gbs;     /* ground bit */
    bool crt;     /* corrupted replies */
    bool sim;     /* simulated */
    bool tst;     /* test target */
    bool rab;     /* from a fixed transponder */
    uint32_t lop; /* 0 undetermined, 1 loop start, 2 loop finish */
    uint32_t tot; /* 0 undetermined, 1 aircraft, 2 ground vehicle, 3 helicopter */
    bool spi;     /* special position identification */
} ast_dataitem_010_020_t;
AST_API ast_dataitem_010_020_t ast_dataitem_010_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes as many octets as hold something, at least one. */
AST_API void ast_dataitem_010_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I010/040, measured position. */
typedef struct {
    bool valid;
    uint32_t rho_raw;   /* LSB 1 m */
    uint32_t theta_raw; /* LSB 360/2^16 degrees */
    double rho_m;
    double theta_deg;
} ast_dataitem_010_040_t;
AST_API ast_dataitem_010_040_t ast_dataitem_010_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Rounds range and azimuth and stores the raw values back unless both are 0; writes the raw ones otherwise. Refuses
 * what is no number, a range that does not fit and an azimuth below 0 or above 360; a full circle is written as 0. */
AST_API void ast_dataitem_010_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I010/042, position: x and y in metres, LSB 1 m, in two's complement. The encoder writes the raw values when both
 *  others are 0. */
AST_API ast_value_pair_t ast_dataitem_010_042_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_042_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_042_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_042_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I010/170, track status. What stands in an octet that was not sent is 0 or false. */
typedef struct {
    bool valid;
    bool cnf;     /* in initialisation */
    bool tre;     /* last report of the track */
    uint32_t cst; /* extrapolation: 0 none, 1 between refreshes, 2 in a masked area, 3 for an unpredictable absence */
    bool mah;     /* horizontal manoeuvre */
    bool tcc;     /* tracked in a reference plane, otherwise in the sensor's */
    bool sth;     /* smoothed position, otherwise a measured one */
    uint32_t tom; /* movement: 0 unknown, 1 taking off, 2 landing, 3 other */
    uint32_t dou; /* doubt: 0 none, 1 correlation, 2 that in clutter, 3 accuracy, 4 that in clutter, 5 unstable,
                     6 previously coasted */
    uint32_t mrs; /* 0 undetermined, 1 merged by association, 2 merged by non-association, 3 split */
    bool gho;     /* suspected to be a ghost */
} ast_dataitem_010_170_t;
AST_API ast_dataitem_010_170_t ast_dataitem_010_170_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes as many octets as hold something, at least one. */
AST_API void ast_dataitem_010_170_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I010/270, target size and orientation. What was not sent is 0. */
typedef struct {
    bool valid;
    uint32_t length_m;        /* LSB 1 m, 0 to 127 */
    bool orientation_present; /* the second octet is sent */
    uint32_t orientation_raw; /* LSB 360/128 degrees */
    double orientation_deg;   /* of the nose, from geographical north */
    bool width_present;       /* the third octet is sent */
    uint32_t width_m;         /* LSB 1 m, 0 to 127 */
} ast_dataitem_010_270_t;
AST_API ast_dataitem_010_270_t ast_dataitem_010_270_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_270_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_270_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Rounds the orientation and stores the raw value back when it is positive; a width brings one along. */
AST_API void ast_dataitem_010_270_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I010/500, standard deviation of position. */
typedef struct {
    bool valid;
    uint32_t x_raw; /* LSB 0.25 m, as the next two */
    uint32_t y_raw;
    int32_t xy_raw; /* covariance */
    double x_m;
    double y_m;
    double xy_m;
} ast_dataitem_010_500_t;
AST_API ast_dataitem_010_500_t ast_dataitem_010_500_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_500_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_500_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes the raw values. */
AST_API void ast_dataitem_010_500_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I010/550, system status. */
typedef struct {
    bool valid;
    uint32_t nogo;   /* 0 operational, 1 degraded, 2 not released */
    bool ovl;        /* overloaded */
    bool time_valid; /* time source valid; the bit that is sent says the contrary */
    bool div;        /* diversity degraded */
    bool ttf;        /* test target failure */
} ast_dataitem_010_550_t;
AST_API ast_dataitem_010_550_t ast_dataitem_010_550_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_010_550_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_550_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_010_550_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/* Accessors: each reads the first item of its type. */
/** I010/010. */
AST_API ast_sac_sic_t ast_datarecord_010_get_sacsic(const ast_datarecord_t *record);
/** I010/140. */
AST_API ast_time_of_day_t ast_datarecord_010_get_timeofday(const ast_datarecord_t *record);
/** Surface, whatever I010/000 says. */
AST_API ast_uint_value_t ast_datarecord_010_get_msgtype(const ast_datarecord_t *record);
/** I010/161. */
AST_API ast_uint_value_t ast_datarecord_010_get_tracknum(const ast_datarecord_t *record);
/** I010/060. */
AST_API ast_squawk_t ast_datarecord_010_get_squawk(const ast_datarecord_t *record);
/** I010/041. */
AST_API ast_coordinate_t ast_datarecord_010_get_coordinate(const ast_datarecord_t *record);
/** I010/090, else I010/091. */
AST_API ast_quantity_t ast_datarecord_010_get_flightlevel(const ast_datarecord_t *record);
/** I010/040, in NM. */
AST_API ast_polar_coordinate_t ast_datarecord_010_get_polarcoord(const ast_datarecord_t *record);
/** The track angle of I010/200. */
AST_API ast_heading_t ast_datarecord_010_get_heading(const ast_datarecord_t *record);
/** I010/200. */
AST_API ast_quantity_t ast_datarecord_010_get_speed(const ast_datarecord_t *record);
/** I010/202. */
AST_API ast_cartesian_velocity_t ast_datarecord_010_get_cartesianvel(const ast_datarecord_t *record);

/** All of a category 010 record that has a member; I010/998 and 999 have none. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type;             /* I010/000 */
    ast_sac_sic_t data_source;                 /* I010/010 */
    ast_dataitem_010_020_t target_report;      /* I010/020 */
    ast_dataitem_010_040_t polar_position;     /* I010/040 */
    ast_value_pair_t position;                 /* I010/041, degrees */
    ast_value_pair_t cartesian_position;       /* I010/042, metres */
    ast_mode_3a_t mode_3a;                     /* I010/060 */
    ast_mode_c_t mode_c;                       /* I010/090 */
    ast_scaled_value_t measured_height;        /* I010/091, feet */
    ast_uint_value_t plot_amplitude;           /* I010/131, in units of the radar's own */
    ast_time_of_day_t time_of_day;             /* I010/140 */
    ast_uint_value_t track_number;             /* I010/161 */
    ast_dataitem_010_170_t track_status;       /* I010/170 */
    ast_value_pair_t polar_velocity;           /* I010/200, knots and degrees */
    ast_value_pair_t cartesian_velocity;       /* I010/202, metres per second */
    ast_target_address_t target_address;       /* I010/220 */
    ast_target_id_t target_id;                 /* I010/245 */
    ast_dataitem_010_270_t target_size;        /* I010/270 */
    ast_dataitem_010_500_t position_deviation; /* I010/500 */
    ast_dataitem_010_550_t system_status;      /* I010/550 */
} ast_datarecord_010_t;

/** Decodes all items of a category 010 record into flat, which is not valid for a record that is not valid or of
 * another category, and returns flat; items that have no member are reported at level 0. */
AST_API ast_datarecord_010_t *ast_datarecord_010_disassemble(ast_datarecord_010_t *flat,
                                                             const ast_datarecord_t *record);

/** Encodes the members that are valid, all but position, measured_height, cartesian_velocity and target_id. Encoders
 * may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_010_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_010_t *flat,
                                                     ast_uap_t uap);

AST_END_DECLARATIONS

#endif
