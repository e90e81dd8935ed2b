/* Category 001: target reports of one radar, plots and tracks, edition 1.4 and the layouts of three radar families. */
#ifndef AST_CAT001_H
#define AST_CAT001_H

#include "cat048.h"
#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 001, also of one that is known but not registered; "Unknown CAT001 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_001_get_name(ast_dataitem_type_t type);

/** I001/020, target report descriptor. What stands in an octet that was not sent is 0 or false. */
typedef struct {
    bool valid;
    uint32_t typ;     /* 0 plot, 1 track */
    bool sim;         /* simulated plot or track */
    uint32_t ssr_psr; /* detected in the last scan: 0 not at all, 1 by PSR, 2 by SSR, 3 by both */
    uint32_t ant;     /* antenna, 1 (by default, also for 0) or 2 */
    bool spi;         /* special position identification, which the pilot sends when asked to */
    bool rab;         /* from a fixed transponder */
    bool tst;         /* test target */
    uint32_t ds1_ds2; /* 0 none, 1 unlawful interference (7500), 2 communication failure (7600), 3 emergency (7700) */
    bool me;          /* military emergency */
    bool mi;          /* military identification */
} ast_dataitem_001_020_t;
AST_API ast_dataitem_001_020_t ast_dataitem_001_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes one octet, or two when tst, ds1_ds2, me or mi is set. */
AST_API void ast_dataitem_001_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/030, warning and error conditions: the layout of I048/030 without its bound, of which the first codes are
 *  held. The codes are numbered otherwise. */
typedef ast_dataitem_048_030_t ast_dataitem_001_030_t;
AST_API ast_dataitem_001_030_t ast_dataitem_001_030_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_030_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_030_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_030_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/040, measured position. */
typedef struct {
    bool valid;
    uint32_t rho_raw;   /* LSB 1/128 NM */
    uint32_t theta_raw; /* LSB 360/2^16 degrees */
    double rho_nm;
    double theta_deg;
} ast_dataitem_001_040_t;
AST_API ast_dataitem_001_040_t ast_dataitem_001_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Rounds range and azimuth and stores the raw values back unless both are 0; writes the raw ones otherwise. Refuses
 * what is no number, a range that does not fit and an azimuth below 0 or above 360; a full circle is written as 0. */
AST_API void ast_dataitem_001_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/042, calculated position: x and y in NM, LSB 1/64 NM, in two's complement. The encoder writes the raw values
 *  when both others are 0. */
AST_API ast_value_pair_t ast_dataitem_001_042_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_042_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_042_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_042_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/120, radial Doppler speed in knots, LSB 1/256 NM/s; received power, I001/131, in dBm; and truncated time of
 *  day, I001/141, in seconds since a multiple of 512 s, LSB 1/128 s. The encoders write the raw value when the other
 *  one is 0. */
AST_API ast_scaled_value_t ast_dataitem_001_120_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_120_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);
AST_API ast_scaled_value_t ast_dataitem_001_131_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_131_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_131_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_131_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);
AST_API ast_scaled_value_t ast_dataitem_001_141_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_141_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_141_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_141_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/130, radar plot characteristics, and I001/210, track quality: what the bits mean is the radar's to say. */
AST_API ast_octet_chain_t ast_dataitem_001_130_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_130_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_octet_chain_t ast_dataitem_001_210_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_210_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/150, presence of the X-pulse in replies of three modes. */
typedef struct {
    bool valid;
    bool xa; /* in a Mode 3/A reply */
    bool xc; /* in a Mode C reply */
    bool x2; /* in a Mode 2 reply */
} ast_dataitem_001_150_t;
AST_API ast_dataitem_001_150_t ast_dataitem_001_150_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_150_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_150_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_150_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/170, track status. tre is false when its octet was not sent. */
typedef struct {
    bool valid;
    bool con;      /* in initialisation */
    uint32_t rad;  /* 0 primary track, 1 SSR or combined track */
    bool man;      /* manoeuvring */
    bool dou;      /* doubtful association of plot and track */
    uint32_t rdpc; /* processing chain, 1 (by default, also for 0) or 2 */
    bool gho;      /* suspected to be a ghost */
    bool tre;      /* last report of the track */
} ast_dataitem_001_170_t;
AST_API ast_dataitem_001_170_t ast_dataitem_001_170_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes one octet, or two when tre is set. */
AST_API void ast_dataitem_001_170_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I001/130 and I001/210 as two radar families send them: types 1901 and 1902 of one octet, 1903 of at most 4 and 1904
 *  of at most 11. */
AST_API ast_octet_chain_t ast_dataitem_001_A01_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A01_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A01_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_octet_chain_t ast_dataitem_001_A02_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A02_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A02_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_octet_chain_t ast_dataitem_001_A03_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A03_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A03_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_octet_chain_t ast_dataitem_001_A04_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A04_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_001_A04_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Accessors: each reads the first item of its type. */
/** I001/010. */
AST_API ast_sac_sic_t ast_datarecord_001_get_sacsic(const ast_datarecord_t *record);
/** Plot or track as I001/020 says; not valid without it. */
AST_API ast_uint_value_t ast_datarecord_001_get_msgtype(const ast_datarecord_t *record);
/** I001/161, of plots, too, under profiles that have it. */
AST_API ast_uint_value_t ast_datarecord_001_get_tracknum(const ast_datarecord_t *record);
/** I001/070. */
AST_API ast_squawk_t ast_datarecord_001_get_squawk(const ast_datarecord_t *record);
/** I001/090. */
AST_API ast_quantity_t ast_datarecord_001_get_flightlevel(const ast_datarecord_t *record);
/** I001/040. */
AST_API ast_polar_coordinate_t ast_datarecord_001_get_polarcoord(const ast_datarecord_t *record);

/** All of a category 001 record that has a member; types 1951, 1997 and 1999 have none. Types 1901 to 1904 share the
 *  members of the items that they stand for. */
typedef struct {
    bool valid;
    ast_sac_sic_t data_source;                   /* I001/010 */
    ast_dataitem_001_020_t target_report;        /* I001/020 */
    ast_dataitem_001_030_t warnings;             /* I001/030 */
    ast_dataitem_001_040_t polar_position;       /* I001/040 */
    ast_value_pair_t cartesian_position;         /* I001/042, NM */
    ast_mode_3a_t mode_2;                        /* I001/050 */
    ast_mode_3a_confidence_t mode_2_confidence;  /* I001/060 */
    ast_mode_3a_t mode_3a;                       /* I001/070 */
    ast_mode_3a_confidence_t mode_3a_confidence; /* I001/080 */
    ast_mode_c_t mode_c;                         /* I001/090 */
    ast_mode_c_confidence_t mode_c_confidence;   /* I001/100 */
    ast_scaled_value_t doppler_speed;            /* I001/120, knots */
    ast_octet_chain_t plot_characteristics;      /* I001/130 */
    ast_scaled_value_t received_power;           /* I001/131, dBm */
    ast_scaled_value_t truncated_time_of_day;    /* I001/141, seconds */
    ast_dataitem_001_150_t x_pulse;              /* I001/150 */
    ast_uint_value_t track_number;               /* I001/161 */
    ast_dataitem_001_170_t track_status;         /* I001/170 */
    ast_value_pair_t polar_velocity;             /* I001/200 */
    ast_octet_chain_t track_quality;             /* I001/210 */
} ast_datarecord_001_t;

/** Decodes all items of a category 001 record into flat, which is not valid for a record that is not valid or of
 * another category, and returns flat; items that have no member are reported at level 0. */
AST_API ast_datarecord_001_t *ast_datarecord_001_disassemble(ast_datarecord_001_t *flat,
                                                             const ast_datarecord_t *record);

/** Encodes the members that are valid and that the profile has, all but plot_characteristics. A plot takes
 *  AST_UAP_CAT001_PLOT, a track AST_UAP_STANDARD. Encoders may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_001_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_001_t *flat,
                                                     ast_uap_t uap);

AST_END_DECLARATIONS

#endif
