/* Category 020: multilateration target reports, edition 1.11. */
#ifndef AST_CAT020_H
#define AST_CAT020_H

#include "cat048.h"
#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 020, also of one that is known but not registered; "Unknown CAT020 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_020_get_name(ast_dataitem_type_t type);

/** I020/020, target report descriptor. Each technology took part where its bit is set. What stands in an octet that was
 *  not sent is false, and 1 and 3 for chn and cf. */
typedef struct {
    bool valid;
    bool ssr;     /* SSR, 1090 MHz, without Mode S */
    bool ms;      /* Mode S, 1090 MHz */
    bool hf;      /* HF multilateration */
    bool vdl4;    /* VDL Mode 4 */
    bool uat;     /* universal access transceiver */
    bool dme;     /* DME or TACAN */
    bool ot;      /* another one */
    bool rab;     /* from a fixed transponder */
    bool spi;     /* special position identification */
    uint32_t chn; /* chain, 1 (by default, also for 0) or 2 */
    bool gbs;     /* ground bit */
    bool crt;     /* corrupted replies */
    bool sim;     /* simulated */
    bool tst;     /* test target */
    uint32_t cf;  /* address: 0 of ICAO, 1 another; 2 no ADS-B message, 3 (by default) not available */
} ast_dataitem_020_020_t;
AST_API ast_dataitem_020_020_t ast_dataitem_020_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes three octets unless cf is 3, otherwise one, or two when the second one holds something. */
AST_API void ast_dataitem_020_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/030, warning and error conditions: the layout and the codes of I048/030 without its bound, of which the first
 *  codes are held. */
typedef ast_dataitem_048_030_t ast_dataitem_020_030_t;
AST_API ast_dataitem_020_030_t ast_dataitem_020_030_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_030_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_030_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_030_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/055, Mode 1 code. */
typedef struct {
    bool valid;
    bool not_validated; /* the code was not received alike more than once */
    bool garbled;       /* replies overlapped */
    bool smoothed;      /* from a local tracker, not from the last reply */
    uint32_t code;      /* five bits: the digit A in three, the digit B in two */
} ast_dataitem_020_055_t;
AST_API ast_dataitem_020_055_t ast_dataitem_020_055_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_055_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_055_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_055_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/170, track status. gho is false when its octet was not sent. */
typedef struct {
    bool valid;
    bool cnf;     /* in initiation */
    bool tre;     /* last report of the track */
    bool cst;     /* coasted */
    uint32_t cdm; /* 0 maintaining, 1 climbing, 2 descending, 3 (by default) invalid */
    bool mah;     /* horizontal manoeuvre */
    bool sth;     /* smoothed position, otherwise a measured one */
    bool gho;     /* suspected to be a ghost */
} ast_dataitem_020_170_t;
AST_API ast_dataitem_020_170_t ast_dataitem_020_170_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes one octet, or two when gho is set. */
AST_API void ast_dataitem_020_170_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/210, acceleration: x and y in metres per second squared, LSB 0.25, in two's complement. The encoder writes the
 *  raw values when both others are 0. */
AST_API ast_value_pair_t ast_dataitem_020_210_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_210_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/230, communications and ACAS capability and flight status, in the layout of I048/230. */
typedef ast_dataitem_048_230_t ast_dataitem_020_230_t;
/** Undefined capabilities and flight statuses are reported at level 2. */
AST_API ast_dataitem_020_230_t ast_dataitem_020_230_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_230_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_230_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes flight status 8 as 7. */
AST_API void ast_dataitem_020_230_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/260, ACAS resolution advisory report, in the layout of I048/260. */
typedef ast_dataitem_048_260_t ast_dataitem_020_260_t;
AST_API ast_dataitem_020_260_t ast_dataitem_020_260_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_260_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_260_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I020/300, vehicle fleet identification, 0 to 16. */
AST_API ast_uint_value_t ast_dataitem_020_300_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_300_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_300_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_300_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/310, pre-programmed message. */
typedef struct {
    bool valid;
    bool trb;     /* in trouble */
    uint32_t msg; /* 1 towing an aircraft, 2 follow me, 3 runway check, 4 emergency operation, 5 work in progress */
} ast_dataitem_020_310_t;
AST_API ast_dataitem_020_310_t ast_dataitem_020_310_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_310_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_310_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_310_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

#define AST_020_400_MAX_OCTETS 32

/** I020/400, contributing devices. An item may carry more than there is room for: octets holds the lesser of count and
 *  AST_020_400_MAX_OCTETS. */
typedef struct {
    bool valid;
    uint32_t count;                         /* REP, as sent: octets of eight receiver units each */
    uint32_t units;                         /* how many contributed */
    uint8_t octets[AST_020_400_MAX_OCTETS]; /* as sent: receiver unit 1 is bit 1 of the last one */
} ast_dataitem_020_400_t;
AST_API ast_dataitem_020_400_t ast_dataitem_020_400_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_400_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_400_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes octets; units is not looked at. */
AST_API void ast_dataitem_020_400_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I020/500, position accuracy: a compound item whose subfields are not registered. */
typedef struct {
    bool valid;
    struct {
        bool present;
        double x; /* without a unit, LSB 0.25, as the next two */
        double y;
        double xy;
    } dop; /* dilution of precision */
    struct {
        bool present;
        double x_m; /* LSB 0.25 m */
        double y_m; /* LSB 0.25 m */
        double xy;  /* correlation, without a unit, LSB 0.25 */
    } sdp;          /* standard deviation of position */
    struct {
        bool present;
        double height_m; /* LSB 0.5 m */
    } sdh;               /* standard deviation of geometric height */
} ast_dataitem_020_500_t;
AST_API uint64_t ast_dataitem_020_500_get_size(const uint8_t *data, uint64_t available);
AST_API ast_dataitem_020_500_t ast_dataitem_020_500_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_020_500_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_020_500_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Accessors: each reads the first item of its type. */
/** I020/010. */
AST_API ast_sac_sic_t ast_datarecord_020_get_sacsic(const ast_datarecord_t *record);
/** I020/140. */
AST_API ast_time_of_day_t ast_datarecord_020_get_timeofday(const ast_datarecord_t *record);
/** Multilateration. */
AST_API ast_uint_value_t ast_datarecord_020_get_msgtype(const ast_datarecord_t *record);
/** I020/161. */
AST_API ast_uint_value_t ast_datarecord_020_get_tracknum(const ast_datarecord_t *record);
/** I020/070. */
AST_API ast_squawk_t ast_datarecord_020_get_squawk(const ast_datarecord_t *record);
/** I020/245, whatever it names, trailing blanks kept. */
AST_API ast_aircraft_id_t ast_datarecord_020_get_callsign(const ast_datarecord_t *record);
/** I020/220. */
AST_API ast_icao_address_t ast_datarecord_020_get_icaoaddr(const ast_datarecord_t *record);
/** I020/041. */
AST_API ast_coordinate_t ast_datarecord_020_get_coordinate(const ast_datarecord_t *record);
/** I020/090, else I020/110, else I020/105. */
AST_API ast_quantity_t ast_datarecord_020_get_flightlevel(const ast_datarecord_t *record);

/** All of a category 020 record that has a member; I020/998 and 999 have none. */
typedef struct {
    bool valid;
    ast_sac_sic_t data_source;                     /* I020/010 */
    ast_dataitem_020_020_t target_report;          /* I020/020 */
    ast_dataitem_020_030_t warnings;               /* I020/030 */
    ast_value_pair_t position;                     /* I020/041, degrees */
    ast_value_pair_t cartesian_position;           /* I020/042, metres */
    ast_mode_3a_t mode_2;                          /* I020/050 */
    ast_dataitem_020_055_t mode_1;                 /* I020/055 */
    ast_mode_3a_t mode_3a;                         /* I020/070 */
    ast_mode_c_t mode_c;                           /* I020/090 */
    ast_mode_c_confidence_t mode_c_confidence;     /* I020/100 */
    ast_scaled_value_t geometric_height;           /* I020/105, feet */
    ast_scaled_value_t measured_height;            /* I020/110, feet */
    ast_time_of_day_t time_of_day;                 /* I020/140 */
    ast_uint_value_t track_number;                 /* I020/161 */
    ast_dataitem_020_170_t track_status;           /* I020/170 */
    ast_value_pair_t cartesian_velocity;           /* I020/202, metres per second */
    ast_value_pair_t acceleration;                 /* I020/210, metres per second squared */
    ast_target_address_t target_address;           /* I020/220 */
    ast_dataitem_020_230_t comm_and_flight_status; /* I020/230 */
    ast_target_id_t target_id;                     /* I020/245 */
    ast_modes_mb_t modes_mb;                       /* I020/250 */
    ast_dataitem_020_260_t acas_advisory;          /* I020/260 */
    ast_uint_value_t vehicle_fleet;                /* I020/300 */
    ast_dataitem_020_310_t message;                /* I020/310 */
    ast_dataitem_020_400_t contributing_devices;   /* I020/400 */
    ast_dataitem_020_500_t position_accuracy;      /* I020/500 */
} ast_datarecord_020_t;

/** Decodes all items of a category 020 record into flat, which is not valid for a record that is not valid or of
 * another category, and returns flat; items that have no member are reported at level 0. */
AST_API ast_datarecord_020_t *ast_datarecord_020_disassemble(ast_datarecord_020_t *flat,
                                                             const ast_datarecord_t *record);

/** Encodes the members that are valid, all but positions, heights, cartesian_velocity, target_address, target_id,
 *  modes_mb, acas_advisory and position_accuracy. Encoders may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_020_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_020_t *flat,
                                                     ast_uap_t uap);

AST_END_DECLARATIONS

#endif
