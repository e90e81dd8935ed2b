/* Category 015: target reports of independent non-cooperative surveillance sensors. */
#ifndef AST_CAT015_H
#define AST_CAT015_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 015, also of one that is known but not registered; "Unknown CAT015 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_015_get_name(ast_dataitem_type_t type);

/** I015/000, message type. */
typedef struct {
    bool valid;
    uint32_t
        mt;  /* 1 measurement plot, 2 measurement track, 3 sensor centric plot, 4 sensor centric track, 5 track end */
    bool rg; /* driven by an event, otherwise periodic */
} ast_dataitem_015_000_t;
AST_API ast_dataitem_015_000_t ast_dataitem_015_000_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_015_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I015/020, target report descriptor. */
typedef struct {
    bool valid;
    uint32_t momu; /* sensor: 0 mono-static, 1 multi-static, 2 other, 3 unknown */
    uint32_t ttax; /* target: 0 actual, 1 reference, 2 synthetic, 3 (by default) simulated or replayed */
    uint32_t scd;  /* scanning direction: 0 unknown, 1 forward, 2 backward, 3 static */
} ast_dataitem_015_020_t;
AST_API ast_dataitem_015_020_t ast_dataitem_015_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_015_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_015_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I015/170, track or plot status. The summary shows the last of the flags that are set, or "TERM" or "ALIVE". */
typedef struct {
    bool valid;
    bool biz;  /* in a blind zone */
    bool baz;  /* in a blanked zone */
    bool tur;  /* terminated by the user */
    bool cstp; /* position coasted */
    bool csth; /* height coasted */
    bool cnf;  /* tentative */
} ast_dataitem_015_170_t;
AST_API ast_dataitem_015_170_t ast_dataitem_015_170_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_015_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_015_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

#define AST_015_300_MAX_CLASSES 16

/** I015/300, what the object may be. Not valid unless the item is as long as its REP says and has at most
 *  AST_015_300_MAX_CLASSES classes. */
typedef struct {
    bool valid;
    uint32_t count; /* REP */
    struct {
        uint32_t cls;                   /* as the sensor defines it */
        uint32_t prb_percent;           /* how probable it is */
    } classes[AST_015_300_MAX_CLASSES]; /* the first count are meaningful */
} ast_dataitem_015_300_t;
AST_API ast_dataitem_015_300_t ast_dataitem_015_300_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_015_300_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_015_300_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I015/400, the measurement that the report is made of. */
typedef struct {
    bool valid;
    uint32_t pid; /* the pair of a transmitter and a receiver, as in I016/300 */
    uint32_t on;  /* observation number */
} ast_dataitem_015_400_t;
AST_API ast_dataitem_015_400_t ast_dataitem_015_400_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_015_400_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_015_400_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I015/480, the measurements that contributed. Not valid unless the item is as long as its REP says. */
typedef struct {
    bool valid;
    uint32_t count; /* REP */
    struct {
        uint32_t pid; /* as in I015/400, as the next */
        uint32_t on;
    } measurements[AST_REPETITIONS_MAX]; /* the first count are meaningful */
} ast_dataitem_015_480_t;
AST_API ast_dataitem_015_480_t ast_dataitem_015_480_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_015_480_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_015_480_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "---" and name "UNKNOWN_SUBFIELD_NAME". Of a subfield the raw members are as
 * sent; the unit of the others and their LSB stand beside the subfield. Correlations go from -1 to less than 1, LSB
 * 1/2^7. Not every subfield has a summary, and the detail views are empty. */

/** A subfield of one number. */
typedef struct {
    bool present;
    int32_t raw;  /* as sent */
    double value; /* in the unit of the subfield */
} ast_dataitem_015_number_t;

/** A subfield of two components, in target centric Cartesian coordinates. */
typedef struct {
    bool present;
    int32_t x_raw; /* as sent, as the next */
    int32_t y_raw;
    double x; /* in the unit of the subfield, as the next */
    double y;
} ast_dataitem_015_components_t;

/** A resolution or a standard deviation of two components. */
typedef struct {
    bool present;
    int32_t x_raw; /* as sent, as the next */
    int32_t y_raw;
    double x; /* in the unit of the subfield, as the next */
    double y;
    double correlation; /* of x and y */
} ast_dataitem_015_spread_t;

/** The standard deviation of a rate. */
typedef struct {
    bool present;
    int32_t raw;        /* as sent */
    double value;       /* in the unit of the subfield */
    double correlation; /* of the rate with what changes at it */
} ast_dataitem_015_precision_t;

/** I015/600, horizontal position information. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        int32_t latitude_raw;  /* LSB 180/2^31 degrees */
        int32_t longitude_raw; /* LSB 180/2^31 degrees */
        double latitude_deg;
        double longitude_deg;
    } p84;                         /* position in WGS-84 */
    ast_dataitem_015_spread_t hpr; /* resolution, metres, LSB 1/2 m */
    ast_dataitem_015_spread_t hpp; /* standard deviation, metres, LSB 1/4 m */
} ast_dataitem_015_600_t;
AST_API uint64_t ast_dataitem_015_600_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_600_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_600_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_600_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_600_t ast_dataitem_015_600_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_600_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_600_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** A confidence interval of a height. */
typedef struct {
    bool present;
    int32_t upper_m; /* LSB 16 m */
    int32_t lower_m; /* LSB 16 m */
} ast_dataitem_015_interval_t;

/** I015/601, geometric height information, above the WGS-84 ellipsoid. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_dataitem_015_number_t gh;          /* height, metres, LSB 1/100 m */
    ast_dataitem_015_number_t rs_gh;       /* resolution, metres, LSB 1/100 m */
    ast_dataitem_015_number_t sd_gh;       /* standard deviation, metres, LSB 1/100 m */
    ast_dataitem_015_interval_t ci6;       /* within which 67% of heights are */
    ast_dataitem_015_interval_t ci9;       /* within which 95% of heights are */
    ast_dataitem_015_components_t co_ghhp; /* correlation with the horizontal position */
    ast_dataitem_015_components_t co_ghhv; /* correlation with the horizontal velocity */
    ast_dataitem_015_components_t co_ghha; /* correlation with the horizontal acceleration */
} ast_dataitem_015_601_t;
AST_API uint64_t ast_dataitem_015_601_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_601_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_601_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_601_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_601_t ast_dataitem_015_601_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_601_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_601_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I015/602, horizontal velocity information. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_dataitem_015_components_t hv; /* velocity, m/s, LSB 1/100 m/s */
    ast_dataitem_015_spread_t rs_hv;  /* resolution, m/s, LSB 1/100 m/s */
    ast_dataitem_015_spread_t sd_hv;  /* standard deviation, m/s, LSB 1/100 m/s */
    struct {
        bool present;
        double xx; /* of the velocity along x with the position along x */
        double xy; /* of the velocity along x with the position along y */
        double yx; /* of the velocity along y with the position along x */
        double yy; /* of the velocity along y with the position along y */
    } co_hvhp;     /* correlation with the horizontal position */
} ast_dataitem_015_602_t;
AST_API uint64_t ast_dataitem_015_602_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_602_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_602_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_602_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_602_t ast_dataitem_015_602_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_602_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_602_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I015/604, vertical velocity information. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_dataitem_015_number_t vv;          /* velocity, m/s upwards, LSB 1/100 m/s */
    ast_dataitem_015_number_t rs_vv;       /* resolution, m/s, LSB 1/100 m/s */
    ast_dataitem_015_precision_t sd_vv;    /* standard deviation, m/s, LSB 1/100 m/s; with the geometric height */
    ast_dataitem_015_components_t co_vvhp; /* correlation with the horizontal position */
    ast_dataitem_015_components_t co_vvhv; /* correlation with the horizontal velocity */
    ast_dataitem_015_components_t co_vvha; /* correlation with the horizontal acceleration */
} ast_dataitem_015_604_t;
AST_API uint64_t ast_dataitem_015_604_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_604_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_604_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_604_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_604_t ast_dataitem_015_604_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_604_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_604_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I015/625, range information: from the sensor to the target or, of a multi-static sensor, how much longer the way
 * from the transmitter by the target is than the direct one. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_dataitem_015_number_t r;        /* range, metres, LSB 1/10 m */
    ast_dataitem_015_number_t rs_r;     /* resolution, metres, LSB 1/10 m */
    ast_dataitem_015_number_t sd_r;     /* standard deviation, metres, LSB 1/10 m */
    ast_dataitem_015_number_t rr;       /* range rate, m/s, LSB 1/10 m/s */
    ast_dataitem_015_number_t rs_rr;    /* resolution, m/s, LSB 1/10 m/s */
    ast_dataitem_015_precision_t sd_rr; /* standard deviation, m/s, LSB 1/10 m/s; with the range */
    ast_dataitem_015_number_t ra;       /* range acceleration, m/s^2, LSB 1/2^6 m/s^2 */
    struct {
        bool present;
        int32_t raw;              /* as sent */
        double value;             /* m/s^2, LSB 1/2^7 m/s^2 */
        double range_correlation; /* with the range */
        double rate_correlation;  /* with the range rate */
    } sd_ra;                      /* standard deviation of the acceleration */
} ast_dataitem_015_625_t;
AST_API uint64_t ast_dataitem_015_625_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_625_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_625_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_625_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_625_t ast_dataitem_015_625_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_625_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_625_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I015/626, Doppler information. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_dataitem_015_number_t dv;       /* velocity, m/s, LSB 1/10 m/s; read as magnitude less 8388607 when negative */
    ast_dataitem_015_number_t sd_dv;    /* standard deviation, m/s, LSB 1/2^6 m/s */
    ast_dataitem_015_number_t da;       /* acceleration, m/s^2, LSB 1/2^6 m/s^2 */
    ast_dataitem_015_precision_t sd_da; /* standard deviation, m/s^2, LSB 1/2^6 m/s^2; with the velocity */
    ast_dataitem_015_number_t co_dvr;   /* correlation of the velocity with the range */
    ast_dataitem_015_number_t co_dvrr;  /* correlation of the velocity with the range rate */
    ast_dataitem_015_number_t co_dvra;  /* correlation of the velocity with the range acceleration */
    ast_dataitem_015_number_t co_dar;   /* correlation of the acceleration with the range */
    ast_dataitem_015_number_t co_darr;  /* correlation of the acceleration with the range rate */
    ast_dataitem_015_number_t co_dara;  /* correlation of the acceleration with the range acceleration */
} ast_dataitem_015_626_t;
AST_API uint64_t ast_dataitem_015_626_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_626_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_626_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_626_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_626_t ast_dataitem_015_626_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_626_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_626_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I015/627, azimuth information, clockwise from north. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_dataitem_015_number_t az;        /* azimuth, degrees, LSB 360/2^16 degrees */
    ast_dataitem_015_number_t rs_az;     /* resolution, degrees, LSB 45/2^16 degrees */
    ast_dataitem_015_number_t sd_az;     /* standard deviation, degrees, LSB 45/2^16 degrees */
    ast_dataitem_015_number_t azr;       /* azimuth rate, degrees per second, LSB 180/2^16 */
    ast_dataitem_015_precision_t sd_azr; /* standard deviation, degrees per second, LSB 45/2^16; with the azimuth */
    struct {
        bool present;
        int32_t start_raw; /* LSB 360/2^16 degrees */
        int32_t end_raw;   /* LSB 360/2^16 degrees */
        double start_deg;
        double end_deg;
    } azex; /* from where to where the target extends, clockwise */
} ast_dataitem_015_627_t;
AST_API uint64_t ast_dataitem_015_627_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_627_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_627_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_627_get_name(uint32_t subfield_type);
AST_API ast_dataitem_015_627_t ast_dataitem_015_627_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_015_627_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_015_627_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/* Accessors: each reads the first item of its type. */
/** I015/010. */
AST_API ast_sac_sic_t ast_datarecord_015_get_sacsic(const ast_datarecord_t *record);
/** I015/145, the time of applicability. */
AST_API ast_time_of_day_t ast_datarecord_015_get_timeofday(const ast_datarecord_t *record);
/** I015/000: one of AST_MSGTYPE_MEASUREMENT_PLOT to AST_MSGTYPE_TRACK_END; not valid for any other type. */
AST_API ast_uint_value_t ast_datarecord_015_get_msgtype(const ast_datarecord_t *record);
/** I015/161. */
AST_API ast_uint_value_t ast_datarecord_015_get_tracknum(const ast_datarecord_t *record);
/** Subfield P84 of I015/600. */
AST_API ast_coordinate_t ast_datarecord_015_get_coordinate(const ast_datarecord_t *record);
/** Subfield GH of I015/601, the geometric height, in feet. */
AST_API ast_quantity_t ast_datarecord_015_get_flightlevel(const ast_datarecord_t *record);
/** Subfield HV of I015/602. */
AST_API ast_cartesian_velocity_t ast_datarecord_015_get_cartesianvel(const ast_datarecord_t *record);
/** Subfield VV of I015/604, in feet per minute. */
AST_API ast_quantity_t ast_datarecord_015_get_vrate(const ast_datarecord_t *record);
/** Subfield R of I015/625, in metres. This and the next two have no slot among the accessors of a category. */
AST_API ast_quantity_t ast_datarecord_015_get_range(const ast_datarecord_t *record);
/** Subfield DV of I015/626, in metres per second. */
AST_API ast_quantity_t ast_datarecord_015_get_dopplervel(const ast_datarecord_t *record);
/** Subfield AZ of I015/627, in degrees clockwise from north. */
AST_API ast_quantity_t ast_datarecord_015_get_azimuth(const ast_datarecord_t *record);

/** All of a category 015 record. */
typedef struct {
    bool valid;
    ast_dataitem_015_000_t message_type;        /* I015/000 */
    ast_sac_sic_t data_source;                  /* I015/010 */
    ast_dataitem_015_020_t target_report;       /* I015/020 */
    ast_time_of_day_t time_of_applicability;    /* I015/145 */
    ast_uint_value_t track_number;              /* I015/161 */
    ast_dataitem_015_170_t track_status;        /* I015/170 */
    ast_dataitem_015_300_t classification;      /* I015/300 */
    ast_dataitem_015_400_t measurement;         /* I015/400 */
    ast_dataitem_015_480_t associations;        /* I015/480 */
    ast_dataitem_015_600_t horizontal_position; /* I015/600 */
    ast_dataitem_015_601_t geometric_height;    /* I015/601 */
    ast_dataitem_015_602_t horizontal_velocity; /* I015/602 */
    ast_dataitem_015_604_t vertical_velocity;   /* I015/604 */
    ast_dataitem_015_625_t range;               /* I015/625 */
    ast_dataitem_015_626_t doppler;             /* I015/626 */
    ast_dataitem_015_627_t azimuth;             /* I015/627 */
} ast_datarecord_015_t;

/** Decodes all items of a category 015 record into flat, whatever that held, and returns flat. Not valid for a record
 *  that is not valid or of another category; items that have no member are reported at level 0. */
AST_API ast_datarecord_015_t *ast_datarecord_015_disassemble(ast_datarecord_015_t *flat,
                                                             const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
