/* Category 048: plots and local tracks of one radar, in that radar's polar coordinates. */
#ifndef AST_CAT048_H
#define AST_CAT048_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 048, also of one that is known but not registered; "Unknown CAT048 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_048_get_name(ast_dataitem_type_t type);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "---" and name "UNKNOWN_SUBFIELD_NAME". */

/** I048/020, target report descriptor. */
typedef struct {
    bool valid;
    uint32_t typ; /* 0 no detection, 1 PSR, 2 SSR, 3 both, 4 Mode S all-call, 5 roll-call, 6 and 7 the same with PSR */
    bool sim;     /* simulated */
    uint32_t rdp; /* processing chain, 1 (by default) or 2 */
    bool spi;     /* special position identification */
    bool rab;     /* from a fixed transponder */
    bool tst;     /* test target */
    bool me;      /* military emergency */
    bool mi;      /* military identification */
    uint32_t foe_fri; /* the friend-or-foe status, for ast_iff_status_to_str; received octets give 0 or 2 only */
} ast_dataitem_048_020_t;
AST_API ast_dataitem_048_020_t ast_dataitem_048_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes one octet, or two when tst, me, mi or foe_fri is set; takes a buffer of two in any case. ME and MI go to bits
 *  7 and 6 of the second octet, where the decoder does not look for them. Nothing is refused: a typ above 7 is written
 * as 0, an rdp other than 2 as chain 1, and a foe_fri above 3 as 0. */
AST_API void ast_dataitem_048_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

#define AST_048_030_MAX_CODES 23

/** I048/030, warning and error conditions. */
typedef struct {
    bool valid;
    uint32_t count;                        /* the octets of the item */
    uint32_t codes[AST_048_030_MAX_CODES]; /* seven bits each; the detail view names them */
} ast_dataitem_048_030_t;
AST_API ast_dataitem_048_030_t ast_dataitem_048_030_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_030_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_030_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I048/040, measured position. */
typedef struct {
    bool valid;
    uint32_t rho_raw;   /* LSB 1/256 NM */
    uint32_t theta_raw; /* LSB 360/2^16 degrees */
    double rho_nm;
    double theta_deg;
} ast_dataitem_048_040_t;
/** Takes an item of four octets of any type. */
AST_API ast_dataitem_048_040_t ast_dataitem_048_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Rounds range and azimuth and stores the raw values back when one of them is positive; writes the raw ones otherwise.
 *  Nothing is refused: the low 16 bits of each are written, so that 256 NM is 0 and the azimuth goes round. */
AST_API void ast_dataitem_048_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I048/042, calculated position; read as magnitude less 32767 when negative. */
typedef struct {
    bool valid;
    int32_t x_raw; /* LSB 1/128 NM */
    int32_t y_raw; /* LSB 1/128 NM */
} ast_dataitem_048_042_t;
AST_API ast_dataitem_048_042_t ast_dataitem_048_042_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_042_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_042_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I048/050, Mode 2 code. */
typedef struct {
    bool valid;
    bool not_validated; /* the code was not received alike more than once */
    bool garbled;       /* replies overlapped */
    bool smoothed;      /* from a local tracker, not from the last reply */
    uint32_t code;      /* 12 bits, shown as four octal digits */
} ast_dataitem_048_050_t;
AST_API ast_dataitem_048_050_t ast_dataitem_048_050_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Refuses a code of more than twelve bits. */
AST_API void ast_dataitem_048_050_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I048/110, height measured by a 3D radar, LSB 25 ft; read as magnitude less 8191 when negative. */
typedef struct {
    bool valid;
    int32_t height_ft; /* whole steps of 25 ft */
} ast_dataitem_048_110_t;
AST_API ast_dataitem_048_110_t ast_dataitem_048_110_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_110_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_110_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I048/120, radial Doppler speed. Its subfields are not read, and their views are empty. */
AST_API uint64_t ast_dataitem_048_120_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_048_120_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_048_120_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_048_120_get_name(uint32_t subfield_type);
AST_API void ast_subfield_048_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_048_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I048/130, radar plot characteristics. The other subfields stay octets. The detail views are empty. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        int32_t raw; /* LSB 360/2^13 degrees */
        double deg;  /* degrees, up to 11.2 */
    } srl;           /* SSR plot runlength */
    struct {
        bool present;
        int32_t value; /* 0 to 255 */
    } srr;             /* number of received replies */
    struct {
        bool present;
        int32_t value; /* the octet, unsigned; shown as -value dBm */
    } sam;             /* amplitude of the reply */
} ast_dataitem_048_130_t;
AST_API uint64_t ast_dataitem_048_130_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_048_130_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_048_130_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_048_130_get_name(uint32_t subfield_type);
AST_API ast_dataitem_048_130_t ast_dataitem_048_130_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_048_130_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_048_130_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I048/170, track status. */
typedef struct {
    bool valid;
    bool cnf;     /* tentative */
    uint32_t rad; /* 0 combined, 1 PSR, 2 SSR, 3 (by default) invalid */
    bool dou;     /* low confidence */
    bool man;     /* horizontal manoeuvre */
    uint32_t cdm; /* 0 maintaining, 1 climbing, 2 descending, 3 (by default) invalid */
} ast_dataitem_048_170_t;
AST_API ast_dataitem_048_170_t ast_dataitem_048_170_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I048/210, track quality: standard deviations. */
typedef struct {
    bool valid;
    uint32_t sigma_x_raw; /* LSB 1/128 NM */
    uint32_t sigma_y_raw; /* LSB 1/128 NM */
    uint32_t sigma_v_raw; /* LSB 0.22 kt */
    uint32_t sigma_h_raw; /* LSB 0.08789 degrees */
    double sigma_x_nm;
    double sigma_y_nm;
    double sigma_v_kt;
    double sigma_h_deg;
} ast_dataitem_048_210_t;
AST_API ast_dataitem_048_210_t ast_dataitem_048_210_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I048/230, communications and ACAS capability and flight status. */
typedef struct {
    bool valid;
    uint32_t com;  /* transponder communications capability, for ast_transponder_comm_cap_to_str; 7 by default */
    uint32_t stat; /* flight status, for ast_radar_flight_status_to_str; 8 by default */
    bool mssc;     /* Mode S specific service capability */
    bool arc;      /* altitude in steps of 25 ft, otherwise 100 ft */
    bool aic;      /* aircraft identification capability */
    bool b1a;      /* bit 16 of register 1,0 */
    uint8_t b1b;   /* bits 37 to 40 of register 1,0 */
} ast_dataitem_048_230_t;
/** Undefined capabilities and flight statuses are reported at level 2. */
AST_API ast_dataitem_048_230_t ast_dataitem_048_230_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_230_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_230_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I048/260, ACAS resolution advisory report. */
typedef struct {
    bool valid;
    ast_bds_t bds; /* register 3,0 */
} ast_dataitem_048_260_t;
AST_API ast_dataitem_048_260_t ast_dataitem_048_260_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_260_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_260_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Accessors: each reads the first item of its type. */
/** I048/010. */
AST_API ast_sac_sic_t ast_datarecord_048_get_sacsic(const ast_datarecord_t *record);
/** I048/140. */
AST_API ast_time_of_day_t ast_datarecord_048_get_timeofday(const ast_datarecord_t *record);
/** Track when the record has I048/161, plot otherwise. */
AST_API ast_uint_value_t ast_datarecord_048_get_msgtype(const ast_datarecord_t *record);
/** I048/161. */
AST_API ast_uint_value_t ast_datarecord_048_get_tracknum(const ast_datarecord_t *record);
/** I048/070; not_validated is not filled in. */
AST_API ast_squawk_t ast_datarecord_048_get_squawk(const ast_datarecord_t *record);
/** I048/240, trailing blanks kept. */
AST_API ast_aircraft_id_t ast_datarecord_048_get_callsign(const ast_datarecord_t *record);
/** I048/220. */
AST_API ast_icao_address_t ast_datarecord_048_get_icaoaddr(const ast_datarecord_t *record);
/** I048/090, else I048/110. */
AST_API ast_quantity_t ast_datarecord_048_get_flightlevel(const ast_datarecord_t *record);
/** Register 4,0 of I048/250: the FMS altitude, else the MCP/FCU altitude. */
AST_API ast_quantity_t ast_datarecord_048_get_selaltitude(const ast_datarecord_t *record);
/** I048/040. */
AST_API ast_polar_coordinate_t ast_datarecord_048_get_polarcoord(const ast_datarecord_t *record);
/** Registers 6,0 and 5,0 of I048/250; of several the last. */
AST_API ast_heading_t ast_datarecord_048_get_heading(const ast_datarecord_t *record);

/** All of a category 048 record that has a member; I048/120, 210, 998 and 999 have none. */
typedef struct {
    bool valid;
    ast_sac_sic_t data_source;                     /* I048/010 */
    ast_dataitem_048_020_t target_report;          /* I048/020 */
    ast_dataitem_048_030_t warnings;               /* I048/030 */
    ast_dataitem_048_040_t polar_position;         /* I048/040 */
    ast_dataitem_048_042_t cartesian_position;     /* I048/042 */
    ast_dataitem_048_050_t mode_2;                 /* I048/050 */
    ast_mode_3a_t mode_3a;                         /* I048/070 */
    ast_mode_3a_confidence_t mode_3a_confidence;   /* I048/080 */
    ast_mode_c_t mode_c;                           /* I048/090 */
    ast_mode_c_confidence_t mode_c_confidence;     /* I048/100 */
    ast_dataitem_048_110_t height_3d;              /* I048/110 */
    ast_dataitem_048_130_t plot_characteristics;   /* I048/130 */
    ast_time_of_day_t time_of_day;                 /* I048/140 */
    ast_uint_value_t track_number;                 /* I048/161 */
    ast_dataitem_048_170_t track_status;           /* I048/170 */
    ast_value_pair_t polar_velocity;               /* I048/200 */
    ast_target_address_t target_address;           /* I048/220 */
    ast_dataitem_048_230_t comm_and_flight_status; /* I048/230 */
    ast_aircraft_id_t aircraft_id;                 /* I048/240 */
    ast_modes_mb_t modes_mb;                       /* I048/250 */
    ast_dataitem_048_260_t acas_advisory;          /* I048/260 */
} ast_datarecord_048_t;

/** Decodes all items of a category 048 record. Not valid for a record that is not valid or of another category; items
 *  that have no member are reported at level 0. */
AST_API ast_datarecord_048_t ast_datarecord_048_disassemble(const ast_datarecord_t *record);

/** Encodes the members that are valid of data_source, target_report, polar_position, mode_2, mode_3a, mode_c,
 *  time_of_day, track_number, polar_velocity, target_address and aircraft_id. Encoders may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_048_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_048_t *flat,
                                                     ast_uap_t uap);

AST_END_DECLARATIONS

#endif
