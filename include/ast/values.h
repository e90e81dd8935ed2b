/* Item layouts that several categories share, as plain records.
 *
 * Each has a decoder, and most have views and an encoder; the registry binds them to every item type of that layout.
 * They take items of any type of the size of the layout, but where the type makes a difference. */
#ifndef AST_VALUES_H
#define AST_VALUES_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/** A small number: message type, service identification, signal amplitude, track number. */
typedef struct {
    bool valid;
    uint32_t value; /* as sent; its width is the item's */
} ast_uint_value_t;

/** Who sent it. */
typedef struct {
    bool valid;
    uint32_t sac; /* System Area Code, 0 to 255 */
    uint32_t sic; /* System Identification Code, 0 to 255 */
} ast_sac_sic_t;

/** A field as sent and in its unit. */
typedef struct {
    bool valid;
    bool flag;    /* vertical rate: range exceeded; otherwise false */
    int32_t raw;  /* the field as sent */
    double value; /* the same in the unit of the item */
} ast_scaled_value_t;

/** Time since midnight, UTC. The hour is not reduced to a day: the largest raw value is 36:24:31.992. */
typedef struct {
    bool valid;
    uint32_t raw;         /* LSB 1/128 s, 24 bits */
    uint32_t hour;        /* 0 to 36 */
    uint32_t minute;      /* 0 to 59 */
    uint32_t second;      /* 0 to 59 */
    uint32_t millisecond; /* 0 to 992, rounded down */
} ast_time_of_day_t;

/** A fraction of a second, to be put to a time of day in whole seconds. */
typedef struct {
    bool valid;
    int32_t fsi;    /* full second indication: the whole second is one less (-1), the same (0) or one more (+1) */
    uint32_t raw;   /* LSB 2^-30 s, 30 bits */
    double seconds; /* 0 to less than 1 */
} ast_time_of_day_high_t;

/** Two fields as sent and in their unit: latitude and longitude in degrees, x and y in metres or metres per second, or
 *  ground speed in knots and heading in degrees. */
typedef struct {
    bool valid;
    int32_t raw_1; /* as sent, as the next */
    int32_t raw_2;
    double value_1; /* in the unit, as the next */
    double value_2;
} ast_value_pair_t;

/** A Mode 3/A or Mode 2 code. */
typedef struct {
    bool valid;
    bool not_validated; /* the code was not received alike more than once */
    bool garbled;       /* replies overlapped */
    bool changed;       /* one bit carries this or the next, depending on the category; both read it */
    bool smoothed;      /* by a tracker, or not extracted in the last scan */
    uint32_t code;      /* 12 bits, shown as four octal digits */
} ast_mode_3a_t;

/** A subfield of ages: how long ago something was last updated. */
typedef struct {
    bool present;
    uint32_t raw; /* as sent; its unit is the item's */
    double age_s; /* seconds */
} ast_age_t;

#define AST_OCTET_CHAIN_MAX 16

/** Octets whose bits mean what each radar defines, chained by their last bit. Of a longer item the first ones. */
typedef struct {
    bool valid;
    uint32_t count;                      /* octets held */
    uint8_t values[AST_OCTET_CHAIN_MAX]; /* seven bits of each, without the one that chains */
} ast_octet_chain_t;

/** The twelve pulses of a reply, in the order in which quality flags are sent. */
#define AST_PULSES 12
#define AST_PULSE_A4 0
#define AST_PULSE_A2 1
#define AST_PULSE_A1 2
#define AST_PULSE_B4 3
#define AST_PULSE_B2 4
#define AST_PULSE_B1 5
#define AST_PULSE_C4 6
#define AST_PULSE_C2 7
#define AST_PULSE_C1 8
#define AST_PULSE_D4 9
#define AST_PULSE_D2 10
#define AST_PULSE_D1 11

/** Which pulses of a Mode 3/A or Mode 2 reply are of low quality. */
typedef struct {
    bool valid;
    bool low_quality[AST_PULSES]; /* by AST_PULSE_... */
} ast_mode_3a_confidence_t;

/** A Mode C height. */
typedef struct {
    bool valid;
    bool validated;       /* the bit that is sent says the contrary */
    bool garbled;         /* replies overlapped */
    int32_t flight_level; /* in quarter levels, LSB 1/4 FL or 25 ft: 1400 at flight level 350 */
} ast_mode_c_t;

typedef struct {
    bool pulse;       /* the pulse is there */
    bool low_quality; /* the radar is not sure of it */
} ast_pulse_t;

/** A Mode C reply as received, pulse by pulse. */
typedef struct {
    bool valid;
    bool validated;                 /* true by default; the bit that is sent says the contrary */
    bool garbled;                   /* replies overlapped */
    uint32_t code;                  /* the digits A, B, C, D of the pulses as four octal digits, not Gray-decoded */
    ast_pulse_t pulses[AST_PULSES]; /* by AST_PULSE_... */
} ast_mode_c_confidence_t;

/** A 24-bit ICAO aircraft address. */
typedef struct {
    bool valid;
    uint8_t octets[3]; /* as sent */
    uint32_t address;  /* the octets as one number, 24 bits */
} ast_target_address_t;

/** An aircraft identification of up to eight characters, trailing blanks kept. */
typedef struct {
    bool valid;
    char text[9]; /* terminated */
} ast_aircraft_id_t;

/** A target identification and where it comes from. sti is named as in I020/245 and I062/245. In I010/245 the same bits
 * say otherwise: there 0 is a callsign or registration from the target, 1 a callsign and 2 a registration that are not;
 * the views name them as the others all the same. */
typedef struct {
    bool valid;
    uint32_t sti; /* 0 not from the target, 1 registration, 2 callsign from the target, 3 (default) undefined */
    char text[9]; /* eight characters, blanks at the end kept */
} ast_target_id_t;

/** One Mode S register as received. */
typedef struct {
    const uint8_t *data; /* its 56 bits in seven octets, in the caller's octets */
    uint64_t size;       /* 7 */
    uint32_t bds;        /* the register: BDS1 × 16 + BDS2, so 4,0 is 64 */
    bool valid;
} ast_bds_t;

#define AST_MODES_MB_MAX_REGISTERS 8

/** Mode S registers. An item may carry more than there is room for: registers holds the lesser of count and
 *  AST_MODES_MB_MAX_REGISTERS. */
typedef struct {
    bool valid;
    uint64_t count;                                  /* REP, as sent */
    ast_bds_t registers[AST_MODES_MB_MAX_REGISTERS]; /* as received */
} ast_modes_mb_t;

/* Message type, one octet; each category names its values. */
AST_API ast_uint_value_t ast_dataitem_message_type_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_message_type_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                              const ast_dataitem_src_t *source);

/* Data source identifier, two octets: SAC, SIC, each 0 to 255. The detail view asks the lookups for countries and
 * sensors. */
AST_API ast_sac_sic_t ast_dataitem_data_source_identifier_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_data_source_identifier_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                        const ast_dataitem_src_t *source);
AST_API void ast_dataitem_data_source_identifier_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_data_source_identifier_get_detail_html(char *text, uint64_t capacity,
                                                                 const ast_dataitem_t *item);

/* Service identification, one octet. */
AST_API ast_uint_value_t ast_dataitem_service_id_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_service_id_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                            const ast_dataitem_src_t *source);
AST_API void ast_dataitem_service_id_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Sector number, one octet, LSB 360/2^8 degrees; value in degrees. The encoder rounds a value in [0, 360) and stores
 * the raw value back, refusing what rounds to 256 (from 359.296875 degrees); any other value leaves it the raw one. */
AST_API ast_scaled_value_t ast_dataitem_sector_number_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_sector_number_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                               const ast_dataitem_src_t *source);
AST_API void ast_dataitem_sector_number_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_sector_number_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Time of day, three octets. The encoder writes raw unless it is 0, and then the time; bits above the 24 of the field
 * are dropped. */
AST_API ast_time_of_day_t ast_dataitem_time_of_day_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_time_of_day_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                             const ast_dataitem_src_t *source);
AST_API void ast_dataitem_time_of_day_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_time_of_day_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* High-precision time of day, four octets. */
AST_API ast_time_of_day_high_t ast_dataitem_time_of_day_high_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_time_of_day_high_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_time_of_day_high_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* WGS-84 position, six octets: latitude [-90, 90] and longitude [-180, 180] in degrees, LSB 180/2^23. The encoder
 * writes a negative value as 2^24 - 1 + value, so that it reads one lower than it was written. */
AST_API ast_value_pair_t ast_dataitem_position_wgs84_low_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_position_wgs84_low_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                    const ast_dataitem_src_t *source);
AST_API void ast_dataitem_position_wgs84_low_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_position_wgs84_low_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* WGS-84 position, eight octets. LSB 180/2^31 degrees in I010/041 and I016/400, 180/2^30 in I019/600 and I021/131, and
 * 180/2^25 in all others. AST_OPTION_INVERT_062_LONGITUDE applies to I062/105. The encoder always writes LSB 180/2^25,
 * and negative values as 2^32 - 1 + value. So I010/041 and I016/400 read back as a 64th of what was written, and
 * I021/131 as a 32nd. */
AST_API ast_value_pair_t ast_dataitem_position_wgs84_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_position_wgs84_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                const ast_dataitem_src_t *source);
AST_API void ast_dataitem_position_wgs84_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_position_wgs84_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Cartesian position, six octets: x and y in metres, LSB 0.5 m. */
AST_API ast_value_pair_t ast_dataitem_position_cartesian_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_position_cartesian_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Cartesian velocity, four octets: vx and vy in metres per second, LSB 0.25 m/s. */
AST_API ast_value_pair_t ast_dataitem_velocity_cartesian_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_velocity_cartesian_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Mode 3/A code, and Mode 2 code in I001/050 and I062/120, two octets. Code bits above 12 are not written. */
AST_API ast_mode_3a_t ast_dataitem_mode_3a_code_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_3a_code_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                              const ast_dataitem_src_t *source);
AST_API void ast_dataitem_mode_3a_code_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_3a_code_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Mode 3/A code confidence, two octets. The summary shows a digit with a pulse of low quality in lower case. */
AST_API ast_mode_3a_confidence_t ast_dataitem_mode_3a_confidence_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_3a_confidence_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                    const ast_dataitem_src_t *source);
AST_API void ast_dataitem_mode_3a_confidence_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_3a_confidence_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Mode C code, two octets. The encoder writes a negative level as 2^14 - 1 + value, so that it reads one lower, and
 * refuses -8192, below which there is nothing to read. */
AST_API ast_mode_c_t ast_dataitem_mode_c_code_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_c_code_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                             const ast_dataitem_src_t *source);
AST_API void ast_dataitem_mode_c_code_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_c_code_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Mode C code with confidence, four octets. The encoder takes the pulses from code, at most 65535, whose bits above the
 * twelve pulses are dropped, and the quality from pulses. */
AST_API ast_mode_c_confidence_t ast_dataitem_mode_c_confidence_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_c_confidence_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                   const ast_dataitem_src_t *source);
AST_API void ast_dataitem_mode_c_confidence_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_c_confidence_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Height, two octets, LSB 6.25 ft; value in feet. */
AST_API ast_scaled_value_t ast_dataitem_height_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_height_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_height_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Vertical rate, two octets, 15 bits, LSB 6.25 ft/min; value in feet per minute. The encoder writes value unless it is
 * 0, and then raw; what is no number is written as 0. */
AST_API ast_scaled_value_t ast_dataitem_vertical_rate_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_vertical_rate_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                               const ast_dataitem_src_t *source);
AST_API void ast_dataitem_vertical_rate_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_vertical_rate_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Antenna rotation period, two octets, LSB 1/128 s; value in seconds. The encoder writes value unless it is 0, and then
 * raw. */
AST_API ast_scaled_value_t ast_dataitem_antenna_rotation_period_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_antenna_rotation_period_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                         const ast_dataitem_src_t *source);
AST_API void ast_dataitem_antenna_rotation_period_get_summary(char *text, uint64_t capacity,
                                                              const ast_dataitem_t *item);
AST_API void ast_dataitem_antenna_rotation_period_get_detail_html(char *text, uint64_t capacity,
                                                                  const ast_dataitem_t *item);

/* Track number, two octets. All 16 bits count in I001/161, I004/030, I004/035, I015/161 and I062/040, the low 12 in all
 * others. The encoder writes 16 bits in the same items but I015/161, where it writes 12. */
AST_API ast_uint_value_t ast_dataitem_track_number_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_track_number_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                              const ast_dataitem_src_t *source);
AST_API void ast_dataitem_track_number_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Polar velocity, four octets: ground speed in knots, LSB 2^-14 NM/s, and heading in degrees, LSB 360/2^16. The encoder
 * rounds the values when one of them is positive, storing the raw ones back, and writes the raw ones otherwise. */
AST_API ast_value_pair_t ast_dataitem_velocity_polar_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_velocity_polar_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                const ast_dataitem_src_t *source);
AST_API void ast_dataitem_velocity_polar_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_velocity_polar_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Target address, three octets. The encoder refuses address 0 and stores the octets back. The detail view asks the
 * country lookup, and is empty without one. */
AST_API ast_target_address_t ast_dataitem_target_address_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_target_address_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                const ast_dataitem_src_t *source);
AST_API void ast_dataitem_target_address_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_target_address_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Aircraft identification, six octets: eight characters of six bits. The encoder fills a short text with blanks; a
 * character that has no code is written as 0, where the text ends when it is read. */
AST_API ast_aircraft_id_t ast_dataitem_aircraft_id_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_aircraft_id_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                             const ast_dataitem_src_t *source);
AST_API void ast_dataitem_aircraft_id_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_aircraft_id_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Target identification, seven octets. */
AST_API ast_target_id_t ast_dataitem_target_id_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_target_id_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_target_id_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Signal amplitude, one octet, unsigned. */
AST_API ast_uint_value_t ast_dataitem_signal_amplitude_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_signal_amplitude_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                  const ast_dataitem_src_t *source);
AST_API void ast_dataitem_signal_amplitude_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Mode S MB data, REP and eight octets for each register: its seven octets and its number. */
AST_API ast_modes_mb_t ast_dataitem_modes_mb_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_modes_mb_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_modes_mb_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Octets without a meaning of their own: their bits, or what kind of field they are. */
AST_API void ast_dataitem_binary_data_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_reserved_expansion_field_get_summary(char *text, uint64_t capacity,
                                                               const ast_dataitem_t *item);
AST_API void ast_dataitem_special_purpose_field_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_random_field_sequencing_get_summary(char *text, uint64_t capacity,
                                                              const ast_dataitem_t *item);

AST_END_DECLARATIONS

#endif
