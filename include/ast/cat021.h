/* Category 021: ADS-B target reports, editions 0.23 to 2.4. */
#ifndef AST_CAT021_H
#define AST_CAT021_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 021, also of one that is known but not registered; "Unknown CAT021 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_021_get_name(ast_dataitem_type_t type);

/* Items. Signed fields are read as their magnitude, less its maximum when the sign bit is set, so that all ones are 0;
 * an encoder writes a negative one accordingly. An encoder takes the physical value rounded to the nearest step, the
 * raw one where the physical value is no number, and refuses what its field cannot hold. Codes that a decoder folds are
 * written as the value that it stored. */

/** I021/008, aircraft operational status. */
typedef struct {
    bool valid;
    bool ra;       /* TCAS resolution advisory active */
    bool ts;       /* target state report capability */
    bool arv;      /* air-referenced velocity report capability */
    bool cdti;     /* cockpit display of traffic information operational */
    bool not_tcas; /* TCAS not operational */
    bool sa;       /* single antenna only */
} ast_dataitem_021_008_t;
AST_API ast_dataitem_021_008_t ast_dataitem_021_008_decode(const ast_dataitem_t *item);
/** Leaves the last eight characters of the text free: a summary that does not fit the rest is cut there. */
AST_API void ast_dataitem_021_008_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_008_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/016, service management. */
typedef struct {
    bool valid;
    double period_s; /* report period; 0: the service is driven by data */
    uint32_t raw;    /* LSB 0.5 s */
} ast_dataitem_021_016_t;
AST_API ast_dataitem_021_016_t ast_dataitem_021_016_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_016_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/020, emitter category. */
typedef struct {
    bool valid;
    uint32_t emitter_category; /* as ast_emitter_category_from_int */
} ast_dataitem_021_020_t;
AST_API ast_dataitem_021_020_t ast_dataitem_021_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/032, accuracy of the time of day. */
typedef struct {
    bool valid;
    uint32_t raw;      /* LSB 1/256 s */
    double accuracy_s; /* how far the time of day may be off, below 1 s */
} ast_dataitem_021_032_t;
AST_API ast_dataitem_021_032_t ast_dataitem_021_032_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_032_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_032_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/040, target report descriptor. What stands in an octet that is not there is zero. */
typedef struct {
    bool valid;
    uint32_t atp; /* address type: 0 ICAO, 1 duplicate, 2 surface vehicle, 3 anonymous, 4 any reserved one */
    uint32_t arc; /* altitude reporting capability: 1 25 ft, 2 100 ft, 3 unknown */
    bool rc;      /* range check passed, CPR validation pending */
    bool rab;     /* from a fixed transponder */
    bool dcr;     /* differential correction */
    bool gbs;     /* ground bit set */
    bool sim;     /* simulated */
    bool tst;     /* test target */
    bool saa;     /* cannot provide a selected altitude */
    uint32_t cl;  /* confidence level: 0 valid, 1 suspect, 2 no information, 3 reserved */
    bool ipc;     /* independent position check failed */
    bool nogo;    /* the go/no-go bit of I023/100 is set */
    bool cpr;     /* CPR validation failed */
    bool ldpj;    /* local decoding position jump detected */
    bool rcf;     /* range check failed */
    bool bit_2;   /* bit 2 of the third octet */
} ast_dataitem_021_040_t;
/** The flags of the third octet are taken from one bit above their published places. */
AST_API ast_dataitem_021_040_t ast_dataitem_021_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes as many octets as hold something; an arc of 0 as unknown. */
AST_API void ast_dataitem_021_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** A field that its item may leave out. */
typedef struct {
    bool present;
    uint32_t value; /* 0 when it is left out */
} ast_optional_field_t;

/** I021/090, quality indicators. The members behind nucp_nic are those of the extensions. */
typedef struct {
    bool valid;
    uint32_t nucr_nacv;            /* navigation uncertainty or accuracy category of the velocity, 0 to 7 */
    uint32_t nucp_nic;             /* uncertainty or integrity category of the position, 0 to 15 */
    ast_optional_field_t nic_baro; /* navigation integrity category of the barometric altitude, 0 or 1 */
    ast_optional_field_t sil;      /* surveillance integrity level, 0 to 3 */
    ast_optional_field_t nac_p;    /* navigation accuracy category of the position, 0 to 15 */
    ast_optional_field_t sil_s;    /* SIL supplement: 0 per flight hour, 1 per sample */
    ast_optional_field_t sda;      /* system design assurance, 0 to 3 */
    ast_optional_field_t gva;      /* geometric altitude accuracy, 0 to 3 */
    ast_optional_field_t pic;      /* position integrity category, 0 to 15 */
} ast_dataitem_021_090_t;
AST_API ast_dataitem_021_090_t ast_dataitem_021_090_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_090_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_090_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes as many octets as the fields that are present take. */
AST_API void ast_dataitem_021_090_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/095, velocity accuracy. */
typedef struct {
    bool valid;
    uint32_t value; /* a category, 0 to 255 */
} ast_dataitem_021_095_t;
AST_API ast_dataitem_021_095_t ast_dataitem_021_095_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_095_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_095_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0 (which I021/110 reports at level 3), id "---" and name "UNKNOWN_SUBFIELD_NAME".
 */

/** I021/110, trajectory intent. */
AST_API uint64_t ast_dataitem_021_110_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_110_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_110_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_110_get_name(uint32_t subfield_type);

/** I021/220, met information. */
AST_API uint64_t ast_dataitem_021_220_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_220_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_220_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_220_get_name(uint32_t subfield_type);

/** I021/140, geometric altitude. */
typedef struct {
    bool valid;
    int32_t raw;        /* LSB 6.25 ft; read as magnitude less 32767 when negative */
    double altitude_ft; /* above the WGS-84 ellipsoid */
} ast_dataitem_021_140_t;
AST_API ast_dataitem_021_140_t ast_dataitem_021_140_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_140_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_140_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_140_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/145, flight level. */
typedef struct {
    bool valid;
    int32_t raw;        /* LSB 1/4 FL; read as magnitude less 32767 when negative */
    double altitude_ft; /* barometric, without a correction by QNH */
} ast_dataitem_021_145_t;
AST_API ast_dataitem_021_145_t ast_dataitem_021_145_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_145_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_145_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_145_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/146, selected altitude. */
typedef struct {
    bool valid;
    bool sas;           /* information on the source is provided */
    uint32_t source;    /* as ast_selected_altitude_source_from_int */
    int32_t raw;        /* LSB 25 ft, 13 bits; read as magnitude less 4095 when negative */
    double altitude_ft; /* in steps of 25 ft */
} ast_dataitem_021_146_t;
AST_API ast_dataitem_021_146_t ast_dataitem_021_146_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_146_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_146_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/150, air speed. */
typedef struct {
    bool valid;
    bool im;       /* the speed is a Mach number, otherwise the indicated air speed */
    uint32_t raw;  /* LSB 2^-14 NM/s or 0.001, 15 bits */
    double ias_kt; /* 0 for a Mach number */
    double mach;   /* 0 for an indicated air speed */
} ast_dataitem_021_150_t;
AST_API ast_dataitem_021_150_t ast_dataitem_021_150_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_150_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_150_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_150_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/151, true air speed. */
typedef struct {
    bool valid;
    bool re;           /* range exceeded */
    uint32_t speed_kt; /* LSB 1 kt, 15 bits */
} ast_dataitem_021_151_t;
AST_API ast_dataitem_021_151_t ast_dataitem_021_151_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_151_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_151_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/152, magnetic heading. */
typedef struct {
    bool valid;
    uint32_t raw;       /* LSB 360/2^16 degrees */
    double heading_deg; /* clockwise from magnetic north, 0 to below 360 */
} ast_dataitem_021_152_t;
AST_API ast_dataitem_021_152_t ast_dataitem_021_152_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_152_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_152_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/160, ground vector. */
typedef struct {
    bool valid;
    bool re;                /* range exceeded */
    int32_t speed_raw;      /* LSB 2^-14 NM/s; negative when re is set, as re is its sign bit */
    uint32_t track_raw;     /* LSB 360/2^16 degrees */
    double ground_speed_kt; /* negative when re is set */
    double track_angle_deg; /* clockwise from true north, 0 to below 360 */
} ast_dataitem_021_160_t;
AST_API ast_dataitem_021_160_t ast_dataitem_021_160_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_160_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_160_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Refuses re with a positive speed, which no octets give. */
AST_API void ast_dataitem_021_160_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/200, target status. */
typedef struct {
    bool valid;
    bool icf;    /* intent change */
    bool lnav;   /* LNAV mode not engaged */
    bool me;     /* military emergency */
    uint32_t ps; /* priority status, as ast_emergency_status_from_int */
    uint32_t ss; /* surveillance status: 0 nothing to report, 1 permanent alert, 2 temporary alert, 3 SPI */
} ast_dataitem_021_200_t;
AST_API ast_dataitem_021_200_t ast_dataitem_021_200_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_200_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_200_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/210, MOPS version. */
typedef struct {
    bool valid;
    bool vns;     /* version not supported by the station */
    uint32_t vn;  /* version number: 0 DO-260, 1 DO-260A, 2 DO-260B, 3 DO-260C */
    uint32_t ltt; /* link technology: 0 other, 1 UAT, 2 1090 ES, 3 VDL 4, 4 any reserved one */
} ast_dataitem_021_210_t;
AST_API ast_dataitem_021_210_t ast_dataitem_021_210_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_210_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/230, roll angle, as sign and magnitude. */
typedef struct {
    bool valid;
    int32_t raw;     /* LSB 0.01 degrees, negative to the left */
    double roll_deg; /* positive with the right wing down */
} ast_dataitem_021_230_t;
AST_API ast_dataitem_021_230_t ast_dataitem_021_230_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_230_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I021/295, data ages; LSB 0.1 s. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    ast_age_t aos; /* aircraft operational status */
    ast_age_t trd; /* target report descriptor */
    ast_age_t m3a; /* Mode 3/A code */
    ast_age_t qi;  /* quality indicators */
    ast_age_t ti;  /* trajectory intent */
    ast_age_t mam; /* message amplitude */
    ast_age_t gh;  /* geometric height */
    ast_age_t fl;  /* flight level */
    ast_age_t sal; /* selected altitude */
    ast_age_t fsa; /* final state selected altitude */
    ast_age_t as;  /* air speed */
    ast_age_t tas; /* true air speed */
    ast_age_t mh;  /* magnetic heading */
    ast_age_t bvr; /* barometric vertical rate */
    ast_age_t gvr; /* geometric vertical rate */
    ast_age_t gv;  /* ground vector */
    ast_age_t tar; /* track angle rate */
    ast_age_t tid; /* target identification, of the same id as ti */
    ast_age_t ts;  /* target status */
    ast_age_t met; /* met information */
    ast_age_t roa; /* roll angle */
    ast_age_t ara; /* ACAS resolution advisory */
    ast_age_t scc; /* surface capabilities and characteristics */
} ast_dataitem_021_295_t;
AST_API uint64_t ast_dataitem_021_295_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_295_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_295_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_295_get_name(uint32_t subfield_type);
AST_API ast_dataitem_021_295_t ast_dataitem_021_295_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_021_295_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);

/** I021/400, receiver. */
typedef struct {
    bool valid;
    uint32_t value; /* 0 to 255 */
} ast_dataitem_021_400_t;
AST_API ast_dataitem_021_400_t ast_dataitem_021_400_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_400_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Items of editions before 1.0, which later editions replaced, and one of editions 1.0 to 2.1. */

/** I021/040 of editions 0.23 to 0.26, target report descriptor. */
typedef struct {
    bool valid;
    bool dcr;     /* differential correction */
    bool gbs;     /* ground bit set */
    bool sim;     /* simulated */
    bool tst;     /* test target */
    bool rab;     /* from a fixed transponder */
    bool saa;     /* cannot provide a selected altitude */
    bool spi;     /* special position identification */
    uint32_t atp; /* address type: 0 ICAO, 1 not unique, 2 surface vehicle, 3 anonymous, 4 any reserved one */
    uint32_t arc; /* altitude reporting capability: 1 25 ft, 2 100 ft, 3 unknown */
} ast_dataitem_021_A03_t;
/** The address types 0 and 1 are sent the other way round. */
AST_API ast_dataitem_021_A03_t ast_dataitem_021_A03_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A03_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A03_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Writes an arc of 0 as unknown. */
AST_API void ast_dataitem_021_A03_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/090 of editions 0.23 to 0.26, figure of merit. */
typedef struct {
    bool valid;
    uint32_t ac; /* as ast_acas_status_from_int */
    uint32_t mn; /* as ast_multi_navids_status_from_int */
    uint32_t dc; /* as ast_diff_correction_status_from_int */
    uint32_t pa; /* position accuracy, a category of 0 to 15 */
} ast_dataitem_021_A05_t;
AST_API ast_dataitem_021_A05_t ast_dataitem_021_A05_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A05_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A05_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A05_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/210 of editions 0.23 to 0.26, link technology. */
typedef struct {
    bool valid;
    bool cdti; /* cockpit display of traffic information */
    bool mds;  /* Mode S extended squitter */
    bool uat;  /* universal access transceiver */
    bool vdl;  /* VDL mode 4 */
    bool otr;  /* other technology */
} ast_dataitem_021_A06_t;
AST_API ast_dataitem_021_A06_t ast_dataitem_021_A06_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A06_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A06_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A06_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/** I021/271 of editions 1.0 to 2.1: one octet, two when the first has FX set. */
AST_API uint64_t ast_dataitem_021_A07_get_size(const uint8_t *data, uint64_t available);

/** I021/200 of editions 0.23 to 0.26, target status. */
typedef struct {
    bool valid;
    uint32_t status; /* as ast_emergency_status_from_int */
} ast_dataitem_021_A08_t;
AST_API ast_dataitem_021_A08_t ast_dataitem_021_A08_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A08_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_021_A08_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

/* Accessors: each reads the first item of its type. */
/** I021/010. */
AST_API ast_sac_sic_t ast_datarecord_021_get_sacsic(const ast_datarecord_t *record);
/** The first of I021/077 and I021/030. */
AST_API ast_time_of_day_t ast_datarecord_021_get_timeofday(const ast_datarecord_t *record);
/** ADS-B, whatever the record holds. */
AST_API ast_uint_value_t ast_datarecord_021_get_msgtype(const ast_datarecord_t *record);
/** I021/161. */
AST_API ast_uint_value_t ast_datarecord_021_get_tracknum(const ast_datarecord_t *record);
/** I021/070. */
AST_API ast_squawk_t ast_datarecord_021_get_squawk(const ast_datarecord_t *record);
/** I021/170, trailing blanks kept. */
AST_API ast_aircraft_id_t ast_datarecord_021_get_callsign(const ast_datarecord_t *record);
/** I021/080. */
AST_API ast_icao_address_t ast_datarecord_021_get_icaoaddr(const ast_datarecord_t *record);
/** The first of I021/130, in six octets or in the eight of editions 0.24 to 0.26, and I021/131. */
AST_API ast_coordinate_t ast_datarecord_021_get_coordinate(const ast_datarecord_t *record);
/** I021/145. */
AST_API ast_quantity_t ast_datarecord_021_get_flightlevel(const ast_datarecord_t *record);
/** I021/146. */
AST_API ast_quantity_t ast_datarecord_021_get_selaltitude(const ast_datarecord_t *record);
/** The track angle of I021/160. */
AST_API ast_heading_t ast_datarecord_021_get_heading(const ast_datarecord_t *record);
/** The ground speed of I021/160. */
AST_API ast_quantity_t ast_datarecord_021_get_speed(const ast_datarecord_t *record);
/** I021/155, the barometric rate. */
AST_API ast_quantity_t ast_datarecord_021_get_vrate(const ast_datarecord_t *record);

/* Flat records: all values of a record as one structure, one structure for each family of editions. A disassembler
 * fills the record that it is given and returns it; null gives null. It leaves a record that is not valid or of another
 * category all zero, and reports items that have no member at level 0. An assembler encodes the members that are valid
 * and that the profile lists; encoders may store raw values back. Not assembled are I021/008, 016, 074, 076, 146, 151,
 * 152 and 295. I021/131 is written in the steps of the older I021/130, so it reads as another position. */

/** A record of the current edition. */
typedef struct {
    bool valid;
    ast_dataitem_021_008_t operational_status;     /* I021/008 */
    ast_sac_sic_t data_source;                     /* I021/010 */
    ast_uint_value_t service_id;                   /* I021/015 */
    ast_dataitem_021_016_t service_management;     /* I021/016 */
    ast_dataitem_021_020_t emitter_category;       /* I021/020 */
    ast_dataitem_021_040_t target_report;          /* I021/040 */
    ast_mode_3a_t mode_3a;                         /* I021/070 */
    ast_time_of_day_t position_applies;            /* I021/071 */
    ast_time_of_day_t velocity_applies;            /* I021/072 */
    ast_time_of_day_t position_received;           /* I021/073 */
    ast_time_of_day_high_t position_received_high; /* I021/074 */
    ast_time_of_day_t velocity_received;           /* I021/075 */
    ast_time_of_day_high_t velocity_received_high; /* I021/076 */
    ast_time_of_day_t transmitted;                 /* I021/077 */
    ast_target_address_t target_address;           /* I021/080 */
    ast_dataitem_021_090_t quality_indicators;     /* I021/090 */
    ast_value_pair_t position;                     /* I021/130 */
    ast_value_pair_t position_high;                /* I021/131 */
    ast_uint_value_t message_amplitude;            /* I021/132 */
    ast_dataitem_021_140_t geometric_altitude;     /* I021/140 */
    ast_dataitem_021_145_t flight_level;           /* I021/145 */
    ast_dataitem_021_146_t selected_altitude;      /* I021/146 */
    ast_dataitem_021_150_t air_speed;              /* I021/150 */
    ast_dataitem_021_151_t true_air_speed;         /* I021/151 */
    ast_dataitem_021_152_t magnetic_heading;       /* I021/152 */
    ast_scaled_value_t barometric_rate;            /* I021/155 */
    ast_scaled_value_t geometric_rate;             /* I021/157 */
    ast_dataitem_021_160_t ground_vector;          /* I021/160 */
    ast_uint_value_t track_number;                 /* I021/161 */
    ast_aircraft_id_t target_id;                   /* I021/170 */
    ast_dataitem_021_200_t target_status;          /* I021/200 */
    ast_dataitem_021_210_t mops_version;           /* I021/210 */
    ast_dataitem_021_295_t data_ages;              /* I021/295 */
} ast_datarecord_021_t;
AST_API ast_datarecord_021_t *ast_datarecord_021_disassemble(ast_datarecord_021_t *flat,
                                                             const ast_datarecord_t *record);
AST_API ast_datarecord_t ast_datarecord_021_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_021_t *flat,
                                                     ast_uap_t uap);

/** A record of edition 2.6. */
typedef struct {
    bool valid;
    ast_dataitem_021_008_t operational_status;     /* I021/008 */
    ast_sac_sic_t data_source;                     /* I021/010 */
    ast_uint_value_t service_id;                   /* I021/015 */
    ast_dataitem_021_016_t service_management;     /* I021/016 */
    ast_dataitem_021_020_t emitter_category;       /* I021/020 */
    ast_dataitem_021_040_t target_report;          /* I021/040 */
    ast_mode_3a_t mode_3a;                         /* I021/070 */
    ast_time_of_day_t position_applies;            /* I021/071 */
    ast_time_of_day_t velocity_applies;            /* I021/072 */
    ast_time_of_day_t position_received;           /* I021/073 */
    ast_time_of_day_high_t position_received_high; /* I021/074 */
    ast_time_of_day_t velocity_received;           /* I021/075 */
    ast_time_of_day_high_t velocity_received_high; /* I021/076 */
    ast_time_of_day_t transmitted;                 /* I021/077 */
    ast_target_address_t target_address;           /* I021/080 */
    ast_dataitem_021_090_t quality_indicators;     /* I021/090 */
    ast_value_pair_t position;                     /* I021/130 */
    ast_value_pair_t position_high;                /* I021/131 */
    ast_uint_value_t message_amplitude;            /* I021/132 */
    ast_dataitem_021_140_t geometric_altitude;     /* I021/140 */
    ast_dataitem_021_145_t flight_level;           /* I021/145 */
    ast_dataitem_021_150_t air_speed;              /* I021/150 */
    ast_scaled_value_t barometric_rate;            /* I021/155 */
    ast_scaled_value_t geometric_rate;             /* I021/157 */
    ast_dataitem_021_160_t ground_vector;          /* I021/160 */
    ast_uint_value_t track_number;                 /* I021/161 */
    ast_aircraft_id_t target_id;                   /* I021/170 */
    ast_dataitem_021_200_t target_status;          /* I021/200 */
    ast_dataitem_021_210_t mops_version;           /* I021/210 */
    ast_dataitem_021_295_t data_ages;              /* I021/295 */
} ast_datarecord_021_v26_t;
AST_API ast_datarecord_021_v26_t *ast_datarecord_021_v26_disassemble(ast_datarecord_021_v26_t *flat,
                                                                     const ast_datarecord_t *record);
AST_API ast_datarecord_t ast_datarecord_021_v26_assemble(uint8_t *buffer, uint64_t length,
                                                         ast_datarecord_021_v26_t *flat, ast_uap_t uap);

/** A record of edition 2.1. */
typedef struct {
    bool valid;
    ast_dataitem_021_008_t operational_status;     /* I021/008 */
    ast_sac_sic_t data_source;                     /* I021/010 */
    ast_uint_value_t service_id;                   /* I021/015 */
    ast_dataitem_021_016_t service_management;     /* I021/016 */
    ast_dataitem_021_020_t emitter_category;       /* I021/020 */
    ast_dataitem_021_040_t target_report;          /* I021/040 */
    ast_mode_3a_t mode_3a;                         /* I021/070 */
    ast_time_of_day_t position_applies;            /* I021/071 */
    ast_time_of_day_t velocity_applies;            /* I021/072 */
    ast_time_of_day_t position_received;           /* I021/073 */
    ast_time_of_day_high_t position_received_high; /* I021/074 */
    ast_time_of_day_t velocity_received;           /* I021/075 */
    ast_time_of_day_high_t velocity_received_high; /* I021/076 */
    ast_time_of_day_t transmitted;                 /* I021/077 */
    ast_target_address_t target_address;           /* I021/080 */
    ast_dataitem_021_090_t quality_indicators;     /* I021/090 */
    ast_value_pair_t position;                     /* I021/130 */
    ast_value_pair_t position_high;                /* I021/131 */
    ast_uint_value_t message_amplitude;            /* I021/132 */
    ast_dataitem_021_140_t geometric_altitude;     /* I021/140 */
    ast_dataitem_021_145_t flight_level;           /* I021/145 */
    ast_dataitem_021_150_t air_speed;              /* I021/150 */
    ast_scaled_value_t barometric_rate;            /* I021/155 */
    ast_scaled_value_t geometric_rate;             /* I021/157 */
    ast_dataitem_021_160_t ground_vector;          /* I021/160 */
    ast_uint_value_t track_number;                 /* I021/161 */
    ast_aircraft_id_t target_id;                   /* I021/170 */
    ast_dataitem_021_200_t target_status;          /* I021/200 */
    ast_dataitem_021_210_t mops_version;           /* I021/210 */
} ast_datarecord_021_v21_t;
AST_API ast_datarecord_021_v21_t *ast_datarecord_021_v21_disassemble(ast_datarecord_021_v21_t *flat,
                                                                     const ast_datarecord_t *record);
AST_API ast_datarecord_t ast_datarecord_021_v21_assemble(uint8_t *buffer, uint64_t length,
                                                         ast_datarecord_021_v21_t *flat, ast_uap_t uap);

/** A record of edition 0.26 or older. All of its members are assembled. */
typedef struct {
    bool valid;
    ast_sac_sic_t data_source;                /* I021/010 */
    ast_dataitem_021_020_t emitter_category;  /* I021/020 */
    ast_time_of_day_t time_of_day;            /* I021/030 */
    ast_mode_3a_t mode_3a;                    /* I021/070 */
    ast_target_address_t target_address;      /* I021/080 */
    ast_dataitem_021_095_t velocity_accuracy; /* I021/095 */
    ast_dataitem_021_145_t flight_level;      /* I021/145 */
    ast_dataitem_021_160_t ground_vector;     /* I021/160 */
    ast_aircraft_id_t target_id;              /* I021/170 */
    ast_value_pair_t position;                /* I021/130 of eight octets */
    ast_dataitem_021_A03_t target_report;     /* I021/040 */
    ast_uint_value_t signal_amplitude;        /* I021/131 */
    ast_dataitem_021_A05_t figure_of_merit;   /* I021/090 */
    ast_dataitem_021_A06_t link_technology;   /* I021/210 */
    ast_dataitem_021_A08_t target_status;     /* I021/200 */
} ast_datarecord_021_v026_t;
AST_API ast_datarecord_021_v026_t *ast_datarecord_021_v026_disassemble(ast_datarecord_021_v026_t *flat,
                                                                       const ast_datarecord_t *record);
AST_API ast_datarecord_t ast_datarecord_021_v026_assemble(uint8_t *buffer, uint64_t length,
                                                          ast_datarecord_021_v026_t *flat, ast_uap_t uap);

AST_END_DECLARATIONS

#endif
