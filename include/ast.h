/* ast: decodes and encodes surveillance data in ASTERIX, the block format that Eurocontrol publishes category by
 * category.
 *
 * SPDX-License-Identifier: MIT
 *
 * The library is handed one data block at a time and splits it into records, items and subfields:
 *
 *     static ast_datablock_t block;                              // about 54 KB: static or heap storage, not a stack
 *     block = ast_datablock_smart_decode(octets, length);
 *     for (uint64_t r = 0; r < block.record_count; ++r)
 *         for (uint64_t i = 0; i < block.records[r].item_count; ++i)
 *             puts(ast_dataitem_get_name(block.records[r].items[i].type));
 *
 * What holds everywhere:
 *
 * - Nothing is allocated and no thread is started. Decoded records are plain values that point into the caller's
 *   octets and are good for as long as those are.
 * - Nothing fails loudly. A result carries a `valid` flag; when it is false, what was decoded before the fault is kept.
 *   Any octets, any length and any capacity are safe, 0 and null included. Reports go to the log sink.
 * - A text is written into the caller's buffer, cut silently at its capacity and always terminated; with capacity 0 or
 * a null buffer nothing is written. Functions that return a text return a constant, or a buffer that belongs to the
 *   calling thread and that the same function's next call on that thread overwrites; never free it.
 * - Every function may be called from any thread at any time. Options, log sink, lookups and HTML flavour are shared by
 *   the whole process; set them before other threads decode if all of them are to see the same settings.
 * - Octets of an item are counted from 1 in the order of transmission, bits from 8 (most significant) to 1 within an
 *   octet, and multi-octet fields are big-endian, as in the category documents. */
#ifndef AST_H
#define AST_H

#include <stdbool.h>
#include <stdint.h>

#if defined(_WIN32) && defined(AST_BUILDING)
#define AST_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(AST_STATIC)
#define AST_API __declspec(dllimport)
#elif defined(__GNUC__)
#define AST_API __attribute__((visibility("default")))
#else
#define AST_API
#endif

#if defined(__MINGW32__)
#define AST_PRINTF(format_index, first_argument) __attribute__((format(gnu_printf, format_index, first_argument)))
#elif defined(__GNUC__)
#define AST_PRINTF(format_index, first_argument) __attribute__((format(printf, format_index, first_argument)))
#else
#define AST_PRINTF(format_index, first_argument)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ========================================================================================================== library ==
 * Identity, options and the log. */

AST_API uint32_t ast_library_version_major(void);
AST_API uint32_t ast_library_version_minor(void);
AST_API uint32_t ast_library_version_patch(void);

/** The version as text, "major.minor.patch", in a buffer of the calling thread. */
AST_API const char *ast_library_version(void);

/** The revision as lower-case hexadecimal text, in a buffer of the calling thread. */
AST_API const char *ast_library_revision(void);

/** The date of this release, "Mmm dd yyyy". Constant, as are the next two. */
AST_API const char *ast_library_build(void);

/** One line on what the library is. */
AST_API const char *ast_library_about(void);

/** A web address. */
AST_API const char *ast_library_contact(void);

/** Clears all option flags and returns true. Leaves the log sink, lookups and flavour alone. Calling it is optional;
 *  there is nothing to release at the end. */
AST_API bool ast_library_init(void);

/* Option bits. Other bits may be set and mean nothing. */

/** A negative longitude of I062/105 is negated before it is scaled, so that it reads as a positive one. */
#define AST_OPTION_INVERT_062_LONGITUDE UINT32_C(1)

/** An FSPEC, or a primary subfield, in which no bit is set is valid: a record or item without content. */
#define AST_OPTION_ALLOW_EMPTY_FSPEC UINT32_C(2)

/** Sets the given option bits and keeps the others. */
AST_API void ast_library_set_option(uint32_t bits);

/** Clears the given option bits and keeps the others. */
AST_API void ast_library_unset_option(uint32_t bits);

/** Clears all option bits. */
AST_API void ast_library_reset_option(void);

/** Whether any of the given bits is set; with bits 0, whether no option is set at all. */
AST_API bool ast_library_test_option(uint32_t bits);

/* Log levels. Any other level is accepted and shown as unknown. */
#define AST_LOG_DEBUG UINT32_C(0)
#define AST_LOG_INFO UINT32_C(1)
#define AST_LOG_WARNING UINT32_C(2)
#define AST_LOG_CRITICAL UINT32_C(3)
#define AST_LOG_PANIC UINT32_C(4)

/** A log sink. Takes one line without a line end; the text is good only during the call. The library ignores what it
 *  returns. It is called on whatever thread reports, so a sink shared by threads does its own locking. */
typedef int32_t ast_log_handler_t(uint32_t level, const char *message);

/** Replaces the log sink, `ast_log_stdout` at start. Null turns all logging off, at the cost of one test per report. */
AST_API void ast_log_handler_reg(ast_log_handler_t *handler);

/** Formats one line, at most 511 characters of it, and hands it to the sink. */
AST_API void ast_log(uint32_t level, const char *format, ...) AST_PRINTF(2, 3);

/** The sink at start: prints a level label of ten characters, a blank, the message and a line end to standard output.
 *  Returns what the last print returned. */
AST_API int32_t ast_log_stdout(uint32_t level, const char *message);

/** Logs "Binary data size: N" and then the octets in hexadecimal: 17 on the first line, 16 on each later one. */
AST_API void ast_log_binary_data(uint32_t level, const uint8_t *data, uint64_t count);

/* ====================================================================================================== conversions ==
 * Numbers and codes as ASTERIX items carry them. Pure functions, but for the texts in buffers of the calling thread. */

/** The ASCII character of a 6-bit ICAO character code (A-Z, 0-9, blank), or 0. The top two bits are ignored. */
AST_API char ast_icao_to_ansi(uint8_t code);

/** The 6-bit ICAO code of a letter (either case), digit or blank; 0 for any other character. Bits of the argument above
 *  its low octet are kept in the result. */
AST_API int32_t ast_ansi_to_icao(int32_t character);

/** Reads count octets, big-endian, as one signed number and returns its low 32 bits. Null or count 0 gives 0. */
AST_API int32_t ast_twos_complement_to_int(const uint8_t *octets, uint32_t count);

/** The same after leaving out the skip most significant bits of the first octet; a skip above 7 gives 0.
 *  A Mode C height is count 2, skip 2. */
AST_API int32_t ast_twos_complement_to_int_ex(const uint8_t *octets, uint32_t count, uint32_t skip);

/** The value 0 to 15 of a hexadecimal digit, or 0xFFFFFFFF. */
AST_API uint32_t ast_hex_to_int(char digit);

/** The eight binary digits of an octet, most significant first, in a buffer of the calling thread. */
AST_API const char *ast_hex_to_bin(uint8_t octet);

/** Reads an octal number after blanks and an optional sign, up to the first character that is not a decimal digit.
 *  8 and 9 count with their decimal values, so "18" is 16. Text that does not begin so gives 0. Low 32 bits. */
AST_API int32_t ast_atoi_oct(const char *text);

/** Fills count octets with value, whatever destination_size says, and returns 0. */
AST_API int32_t ast_memset(void *destination, uint64_t destination_size, int32_t value, uint64_t count);

/** A position in degrees as "DDMMSSNDDDMMSSE", in a buffer of the calling thread. Latitude 0 is written S, longitude 0
 * W, and a rounded 60 seconds is not carried into the minutes. */
AST_API const char *ast_latlong_to_str(double latitude, double longitude);

/** The same with hundredths of a second: "DDMMSS.ssNDDDMMSS.ssE". */
AST_API const char *ast_latlong_to_str_high(double latitude, double longitude);

/** The same with millionths of a second: "DDMMSS.ssssssNDDDMMSS.ssssssE". */
AST_API const char *ast_latlong_to_str_very_high(double latitude, double longitude);

/* =============================================================================================== lookups, map links ==
 * What an application can tell the library about sites, sensors and countries; the detail views show it.
 *
 * A lookup fills a zeroed result that the library hands it and may use at most AST_LOOKUP_MAX_ENTRIES entries of a
 * list; a count above that is taken as that. Texts belong to the application, stay unchanged until the view that asked
 * has returned, and may be null, which is shown as an empty text. Reserved members are the application's and never
 * read. */

#define AST_LOOKUP_MAX_ENTRIES 10

/** One country or region to which a system area code is allocated. */
typedef struct {
    bool valid;
    uint64_t reserved_1;
    const char *region;
    uint64_t reserved_2;
    const char *country_code;
    const char *country;
} ast_sac_info_t;

typedef struct {
    uint64_t count;
    ast_sac_info_t entries[AST_LOOKUP_MAX_ENTRIES];
} ast_sac_info_list_t;

/** One sensor or system that sends under a SAC and SIC. */
typedef struct {
    bool valid;
    uint64_t reserved;
    const char *system;
    const char *country_code;
    const char *country;
    const char *type;
    const char *manufacturer;
    const char *model;
    const char *description;
} ast_sensor_t;

typedef struct {
    uint64_t count;
    ast_sensor_t entries[AST_LOOKUP_MAX_ENTRIES];
} ast_sensor_list_t;

/** The country to which a 24-bit ICAO aircraft address is allocated. */
typedef struct {
    bool found;
    const char *code;
    uint64_t reserved_1;
    uint64_t reserved_2;
    const char *name;
} ast_country_t;

struct ast_dataitem;

typedef void ast_sac_get_info_t(ast_sac_info_list_t *result, uint32_t sac);
typedef void ast_sacsic_get_sensor_t(ast_sensor_list_t *result, uint32_t sac, uint32_t sic);
typedef void ast_icao_addr_get_country_t(ast_country_t *result, uint32_t address, const struct ast_dataitem *item);
typedef const void *ast_get_national_flag_t(const char *country_code);

/** Each registers one lookup in place of the last; null, as at start, switches it off. */
AST_API void ast_reg_callback_sac_get_info(ast_sac_get_info_t *lookup);
AST_API void ast_reg_callback_sacsic_get_sensor(ast_sacsic_get_sensor_t *lookup);
AST_API void ast_reg_callback_icao_addr_get_country(ast_icao_addr_get_country_t *lookup);

/** The flag lookup is told the code of each country found for an address; what it returns is not used. */
AST_API void ast_reg_callback_get_national_flag(ast_get_national_flag_t *lookup);

/* Map services. */
#define AST_MAP_GOOGLE UINT32_C(1)
#define AST_MAP_OSM UINT32_C(2)
#define AST_MAP_AMAP UINT32_C(3)
#define AST_MAP_BAIDU UINT32_C(4)

/** The display name of a map service, "No Map" for any other number. Constant. */
AST_API const char *ast_map_get_service_name(uint32_t service);

/** Writes a link that shows a WGS-84 position, in degrees, on one service's map. Always returns true. */
AST_API bool ast_map_get_link_url_google(char *text, uint64_t capacity, double latitude, double longitude);
AST_API bool ast_map_get_link_url_osm(char *text, uint64_t capacity, double latitude, double longitude);
AST_API bool ast_map_get_link_url_amap(char *text, uint64_t capacity, double latitude, double longitude);
AST_API bool ast_map_get_link_url_baidu(char *text, uint64_t capacity, double latitude, double longitude);

/** The same for a service by number. Returns false, and leaves the text untouched, for any number but 1 to 4. */
AST_API bool ast_map_get_link_url(char *text, uint64_t capacity, uint32_t service, double latitude, double longitude);

/* ========================================================================================================== records ==
 * What blocks, records and items look like once decoded, and what an encoder is given. */

/** Records that a decoded block has room for. */
#define AST_DATABLOCK_MAX_RECORDS 64

/** Items that a decoded record has room for. */
#define AST_DATARECORD_MAX_ITEMS 32

/** Subfields that a decoded compound item has room for. */
#define AST_SUBFIELDS_MAX 35

/** Identifies an item: category × 1000 + the three digits of the item's reference, so I048/010 is 48010. 0 is no item.
 *  Where an edition or a system gives an item a layout of its own, that layout has a type in the category's 900 range
 *  (1901 to 1904, 1951, 2901, 2902, 2951, 21902 to 21908). */
typedef uint32_t ast_dataitem_type_t;

#define AST_DATAITEM_TYPE(category, item) (UINT32_C(1000) * (category) + (item))

/** No item: a spare or undefined FRN. */
#define AST_DATAITEM_NONE UINT32_C(0)

/* Item numbers that mean the same in every category. */
#define AST_ITEM_RFS UINT32_C(997) /* Random Field Sequencing */
#define AST_ITEM_REF UINT32_C(998) /* Reserved Expansion Field */
#define AST_ITEM_SPF UINT32_C(999) /* Special Purpose Field */

/** A User Application Profile: which item each FRN of a record announces. One of the profiles below, or the caller's
 *  own. A null max_frn defines no FRN to encode; a null get_dataitem announces no item. */
typedef struct {
    uint32_t (*max_frn)(uint32_t category);
    ast_dataitem_type_t (*get_dataitem)(uint32_t category, uint32_t frn);
} ast_uap_t;

/** A decoded FSPEC, which says what items a record has, or the primary subfield of a compound item. */
typedef struct {
    const uint8_t *data; /* its first octet, in the caller's octets */
    uint64_t length;     /* octets, up to the first whose FX bit is 0 */
    uint64_t frn_count;  /* the highest FRN it can announce: 7 × length */
    uint64_t item_count; /* the presence bits that are set */
    bool valid;
} ast_fspec_t;

/** One item of a record. */
typedef struct ast_dataitem {
    const uint8_t *data; /* its first octet, in the caller's octets */
    uint64_t size;       /* octets */
    ast_dataitem_type_t type;
    bool valid;        /* its size could be told */
    uint8_t following; /* octets known to follow it in the caller's buffer: 255 for 255 or more, 0 when not known */
} ast_dataitem_t;

/** One decoded record. */
typedef struct {
    const uint8_t *data; /* the first octet of its FSPEC */
    uint64_t size;       /* FSPEC and items, in octets; 0 unless valid */
    uint32_t category;
    ast_uap_t uap; /* the profile it was decoded with */
    ast_fspec_t fspec;
    ast_dataitem_t items[AST_DATARECORD_MAX_ITEMS]; /* in FRN order; the first item_count are meaningful */
    uint64_t item_count;
    bool valid;
} ast_datarecord_t;

/** One decoded block. Large: keep it in static or heap storage. */
typedef struct {
    const uint8_t *data; /* its CAT octet */
    uint64_t length;     /* the whole block in octets, from LEN */
    uint32_t category;
    ast_uap_t uap;               /* the profile it was decoded with */
    const uint8_t *records_data; /* its first record: data + 3 */
    uint64_t records_length;     /* LEN - 3 */
    ast_datarecord_t records[AST_DATABLOCK_MAX_RECORDS];
    uint64_t record_count;
    bool valid; /* the records fill LEN exactly */
} ast_datablock_t;

/** One item to encode: its type and its value record, as the item's decoder returns it. The value is not const because
 *  some encoders store the raw values that they wrote back into it. */
typedef struct {
    ast_dataitem_type_t type;
    void *value;
} ast_dataitem_src_t;

typedef ast_dataitem_src_t ast_dataitem_value_t;

/** One record to encode. Items in any order; the first of a type counts. */
typedef struct {
    uint32_t category;
    ast_uap_t uap;
    ast_dataitem_src_t items[AST_DATARECORD_MAX_ITEMS];
    uint64_t item_count;
} ast_datarecord_src_t;

/** One block to encode. */
typedef struct {
    uint32_t category;
    ast_uap_t uap;
    ast_datarecord_src_t records[AST_DATABLOCK_MAX_RECORDS];
    uint64_t record_count;
} ast_datablock_src_t;

/** New values for items that a record already has. */
typedef struct {
    ast_dataitem_src_t items[AST_DATARECORD_MAX_ITEMS];
    uint64_t item_count;
} ast_dataitem_src_list_t;

/* ============================================================================================ blocks and records == */

/** Decodes the block at data with one profile.
 *  data       the CAT octet; borrowed by the result
 *  available  octets that may be read
 *  The result is valid when LEN fits what is available and the records fill it exactly. Otherwise it holds the records
 *  before the fault, at most 64; a 65th record is reported at level 4 and the octets at level 0. */
AST_API ast_datablock_t ast_datablock_decode(const uint8_t *data, uint64_t available, ast_uap_t uap);

/** Decodes the block at data with the first profile that fits: for category 001 the mix of plots and tracks, then the
 *  profile that the process used last, then the exported profiles from AST_UAP_STANDARD to AST_UAP_MANAGAIR in their
 *  order below. When none fits, the result is that of AST_UAP_MANAGAIR, not valid. Attempts that fail may log. */
AST_API ast_datablock_t ast_datablock_smart_decode(const uint8_t *data, uint64_t available);

/** Decodes a category 001 block in which plots and tracks alternate: each record with AST_UAP_CAT001_PLOT or
 *  AST_UAP_STANDARD, as TYP of I001/020 says. The block names AST_UAP_STANDARD, each record its own profile. */
AST_API ast_datablock_t ast_datablock_001_mixuap_decode(const uint8_t *data, uint64_t available);

/** Encodes a block of 1 to 64 records of its category into buffer.
 *  The result is valid when all records are encoded and the total is at most 65535 octets. */
AST_API ast_datablock_t ast_datablock_encode(uint8_t *buffer, uint64_t length, const ast_datablock_src_t *source);

/** Writes a decoded block into buffer with new values for items that its records have; the list applies to every
 * record. Not valid when the source is not, when an item does not fit or encode, or when the total exceeds 65535
 * octets. */
AST_API ast_datablock_t ast_datablock_modify(uint8_t *buffer, uint64_t length, const ast_datablock_t *source,
                                             const ast_dataitem_src_list_t *replacements);

/** Decodes the record at data.
 *  The result is valid when every item that the FSPEC announces is known, fits and is one of at most 32; otherwise it
 *  holds the items before the fault and size 0. Items are sized here, their values are read by their own functions. */
AST_API ast_datarecord_t ast_datarecord_decode(const uint8_t *data, uint64_t available, uint32_t category,
                                               ast_uap_t uap);

/** Encodes a record into buffer: the FSPEC, then the items in FRN order. Items whose type the profile does not list are
 *  left out. The result has size and valid, but no items. Not valid, with a report at level 0, when nothing is left to
 *  encode or an item fails. */
AST_API ast_datarecord_t ast_datarecord_encode(uint8_t *buffer, uint64_t length, const ast_datarecord_src_t *source);

/** Copies a decoded record into buffer; the result describes the copy. */
AST_API ast_datarecord_t ast_datarecord_copy(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source);

/** Writes a decoded record into buffer with new values for items that it has. Items are neither added nor removed; a
 *  new value may change an item's size. */
AST_API ast_datarecord_t ast_datarecord_modify(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source,
                                               const ast_dataitem_src_list_t *replacements);

/** The octets of a valid record, FSPEC included, as an HTML table of hexadecimal digits, 16 octets a row. */
AST_API void ast_datarecord_get_hex_html(char *text, uint64_t capacity, const ast_datarecord_t *record);

/** The items of a record, valid or not, as an HTML table of references, titles, sizes and summaries. A size of three
 *  digits shows its first two. */
AST_API void ast_datarecord_get_detail_html(char *text, uint64_t capacity, const ast_datarecord_t *record);

/* ========================================================================================================= FSPEC == */

/** Decodes the FSPEC at data. Not valid, with length 0, when its FX chain runs past what is available; not valid, with
 *  length and counts filled, when no bit is set and AST_OPTION_ALLOW_EMPTY_FSPEC is not. */
AST_API ast_fspec_t ast_fspec_decode(const uint8_t *data, uint64_t available);

/** Whether a valid FSPEC announces an FRN, counted from 1. */
AST_API bool ast_fspec_is_set(const ast_fspec_t *fspec, uint32_t frn);

/** Sets or clears the bit of an FRN in FSPEC octets, and returns whether the octets hold it. FX bits are left alone. */
AST_API bool ast_fspec_set(uint8_t *octets, uint64_t available, uint32_t frn, bool on);

/** Copies a valid FSPEC into buffer. When it is not valid or does not fit, the result is not valid and has length 0,
 * but carries the counts of the source. */
AST_API ast_fspec_t ast_fspec_copy(uint8_t *buffer, uint64_t length, const ast_fspec_t *source);

/* ========================================================================================================= items == */

/** The five handlers of an item type. A null slot means "not supported". */
typedef struct {
    uint64_t (*get_size)(const uint8_t *data, uint64_t available);
    const char *(*get_name)(ast_dataitem_type_t type);
    void (*get_summary)(char *text, uint64_t capacity, const ast_dataitem_t *item);
    void (*get_detail_html)(char *text, uint64_t capacity, const ast_dataitem_t *item);
    void (*encode)(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source);
} ast_dataitem_func_t;

/** The handlers of an item type. A type that is not registered has none, which is reported at level 3 unless it is 0.
 */
AST_API ast_dataitem_func_t ast_dataitem_get_func(ast_dataitem_type_t type);

/** The reference of an item type, such as "I048/010", "I062/REF", "I034/SPF" or "I001/RFS". A variant type reads as the
 *  item that it stands for. In a buffer of the calling thread. */
AST_API const char *ast_dataitem_type_to_str(ast_dataitem_type_t type);

/** The title of an item type, or "UNKNOWN NAME" when it is not registered. Constant. */
AST_API const char *ast_dataitem_get_name(ast_dataitem_type_t type);

/** The size in octets of the item at data, or 0 when the type is not registered or the octets do not hold all of it.
 *  Explicit-length fields (RFS, REF, SPF) and I062/510 do not look at what is available: their size may exceed it. */
AST_API uint64_t ast_dataitem_get_size(const uint8_t *data, uint64_t available, ast_dataitem_type_t type);

/** The item at data. Valid when it has a size; as above, that of an explicit-length field or I062/510 may exceed what
 * is available, so compare before reading on. Records never hold such items. */
AST_API ast_dataitem_t ast_dataitem_decode(const uint8_t *data, uint64_t available, ast_dataitem_type_t type);

/** Copies a valid item into buffer; the result describes the copy. */
AST_API ast_dataitem_t ast_dataitem_copy(uint8_t *buffer, uint64_t length, const ast_dataitem_t *source);

/** Writes the octets of an item from its value record. Not valid when the value is missing or not valid, out of range,
 *  or too long for the buffer; an item type without an encoder is reported at level 2. */
AST_API ast_dataitem_t ast_dataitem_encode(uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source);

/** One line on the item's value, such as "SAC:025 SIC:012". "NOT_IMPLEMENTED" for an item that is not valid or whose
 *  type has no summary. */
AST_API void ast_dataitem_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** The fields of the item's value as an HTML fragment. Empty for an item that is not valid or has no detail view. */
AST_API void ast_dataitem_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** The octets of a valid item in hexadecimal, "0a 1b". */
AST_API void ast_dataitem_get_hex_str(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** The octets of an item, valid or not, in binary, "00001010 00011011". */
AST_API void ast_dataitem_get_bin_str(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** The octets of a valid item as an HTML table of hexadecimal digits, 16 octets a row. */
AST_API void ast_dataitem_get_hex_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** The octets of a valid item as an HTML table of bits, four octets a row. */
AST_API void ast_dataitem_get_bin_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** A detail view of nothing: the empty text. */
AST_API void ast_dataitem_get_detail_html_dummy(char *text, uint64_t capacity);

/* ------------------------------------------------------------------------------------------------------- size rules --
 * Each takes the first octet of an item and the octets available, and returns the item's size in octets, 0 when the
 * octets do not hold all of it. */

/** N octets. */
AST_API uint64_t ast_dataitem_get_size_fixed(const uint8_t *data, uint64_t available, uint64_t size);
AST_API uint64_t ast_dataitem_get_size_fixed_1_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_2_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_3_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_4_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_5_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_6_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_7_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_8_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_9_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_fixed_12_byte(const uint8_t *data, uint64_t available);

/** Octets chained by their FX bits, at most N (999 for "unlimited"). When octet N still has FX set and another octet is
 *  available, the size is N, reported at level 3; with no other octet available it is 0. */
AST_API uint64_t ast_dataitem_get_size_variable(const uint8_t *data, uint64_t available, uint64_t maximum);
AST_API uint64_t ast_dataitem_get_size_var_1_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_2_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_3_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_4_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_5_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_6_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_11_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_12_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_16_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_23_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_var_unlimited(const uint8_t *data, uint64_t available);

/** A repetition count (REP), then REP elements of N octets. */
AST_API uint64_t ast_dataitem_get_size_repeat(const uint8_t *data, uint64_t available, uint64_t element_size);
AST_API uint64_t ast_dataitem_get_size_rep_1_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_2_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_3_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_4_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_5_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_6_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_8_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_12_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_15_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_21_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_64_byte(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_get_size_rep_256_byte(const uint8_t *data, uint64_t available);

/** Explicit length: the first octet, which counts itself. It is not compared with what is available. */
AST_API uint64_t ast_dataitem_reserved_expansion_field_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_special_purpose_field_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_dataitem_random_field_sequencing_get_size(const uint8_t *data, uint64_t available);

/* =================================================================================================== compound items ==
 * A compound item is a primary subfield, laid out like an FSPEC, and the subfields that it announces in bit order.
 * A subfield type is item type × 1000 + subfield number, counted from 1: 48130001 is the first subfield of I048/130. */

#define AST_SUBFIELD_TYPE(item_type, number) (UINT32_C(1000) * (item_type) + (number))

/** The five handlers of a subfield type. A null slot means "not supported". The views take the whole compound item. */
typedef struct {
    uint64_t (*get_size)(const uint8_t *data, uint64_t available, uint32_t subfield_type);
    const char *(*get_id)(uint32_t subfield_type);
    const char *(*get_name)(uint32_t subfield_type);
    void (*get_summary)(char *text, uint64_t capacity, const ast_dataitem_t *item, uint32_t subfield_type);
    void (*get_detail_html)(char *text, uint64_t capacity, const ast_dataitem_t *item, uint32_t subfield_type);
} ast_subfield_func_t;

/** One subfield of a decoded compound item. */
typedef struct {
    bool present;
    const uint8_t *data; /* its first octet; null when absent, or when the item ends before it */
    uint64_t size;       /* octets, 0 when absent */
    uint32_t type;
    bool valid; /* set in every listed entry, present or not */
} ast_subfield_t;

/** A decoded compound item: an entry for each subfield that its primary subfield has a bit for, present or not, as far
 *  as the item defines them. */
typedef struct {
    bool valid;
    ast_fspec_t primary;
    ast_subfield_t subfields[AST_SUBFIELDS_MAX];
    uint64_t subfield_count;
} ast_subfields_t;

/** The handlers of a subfield type, all null when its item is not a registered compound item. */
AST_API ast_subfield_func_t ast_subfield_get_func(uint32_t subfield_type);

/** The size in octets of the subfield at data; 0 for an unknown subfield. Fixed sizes do not look at what is available.
 */
AST_API uint64_t ast_subfield_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);

/** The short identifier of a subfield, such as "SRL", or "---". Constant. */
AST_API const char *ast_subfield_get_id(uint32_t subfield_type);

/** The title of a subfield, or "UNKNOWN_SUBFIELD_NAME". Constant. */
AST_API const char *ast_subfield_get_name(uint32_t subfield_type);

/** One line on the value of one subfield of item; "NOT_IMPLEMENTED" when there is no such view. */
AST_API void ast_subfield_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                      uint32_t subfield_type);

/** The fields of one subfield of item as an HTML fragment; empty when there is no such view. */
AST_API void ast_subfield_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                          uint32_t subfield_type);

/** The octets of a valid subfield as an HTML table of bits. */
AST_API void ast_subfield_get_bin_html(char *text, uint64_t capacity, const ast_subfield_t *subfield);

/** The size of an extended subfield of at most N octets, as the item rule of that kind. */
AST_API uint64_t ast_subfield_get_size_variable(const uint8_t *data, uint64_t available, uint64_t maximum);

/** The size of a repeated subfield: REP, then REP elements of N octets; 0 when that exceeds what is available. */
AST_API uint64_t ast_subfield_get_size_repeated(const uint8_t *data, uint64_t available, uint64_t element_size);

/** How many subfields a compound item defines; 0, reported at level 3, for any other item type. */
AST_API uint64_t ast_dataitem_subfields_get_number(ast_dataitem_type_t type);

/** The size of the whole compound item at data: the primary subfield and every subfield that it announces. 0 when the
 *  primary subfield is not valid or the total exceeds what is available. */
AST_API uint64_t ast_dataitem_subfields_get_size(const uint8_t *data, uint64_t available, ast_dataitem_type_t type);

/** Splits a valid compound item into its subfields. */
AST_API ast_subfields_t ast_dataitem_subfields_decode(const ast_dataitem_t *item);

/** How many subfields a valid compound item has, of how many that it lists: "SUBFIELDS:03/07". */
AST_API void ast_dataitem_subfields_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** A valid compound item as an HTML fragment: a table of its subfields, then the bits and fields of each present one.
 */
AST_API void ast_dataitem_subfields_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* ========================================================================================================= profiles ==
 * The standard profile covers every category; each variant overrides one or two and asks AST_UAP_STANDARD for the rest,
 * through that object, which in turn asks AST_UAP_CAT021_VER026 for category 021. So an application that changes one of
 * those two objects, before it decodes, changes every fallback; neither may be pointed at a variant that falls back on
 * it. */

AST_API extern ast_uap_t AST_UAP_STANDARD;      /* all categories; category 021 as edition 0.26 */
AST_API extern ast_uap_t AST_UAP_CAT001_PLOT;   /* category 001: plots */
AST_API extern ast_uap_t AST_UAP_CAT021_VER023; /* category 021: edition 0.23 */
AST_API extern ast_uap_t AST_UAP_CAT021_VER026; /* category 021: edition 0.26 */
AST_API extern ast_uap_t AST_UAP_CAT021_VER21;  /* category 021: edition 2.1 */
AST_API extern ast_uap_t AST_UAP_CAT021_VER24;  /* category 021: edition 2.4 */
AST_API extern ast_uap_t AST_UAP_ASR10SS;       /* categories 001 and 002: ASR10SS radar */
AST_API extern ast_uap_t AST_UAP_ASR10SS_MK2;   /* categories 001 and 002: ASR10SS MK2 radar */
AST_API extern ast_uap_t AST_UAP_THALES;        /* category 021: THALES layout */
AST_API extern ast_uap_t AST_UAP_MANAGAIR;      /* categories 001 and 002: MANAGAIR layout */

/** The highest FRN that a profile defines for a category, which is how far the encoder looks; 0 for none. */
AST_API uint32_t ast_uap_max_frn(const ast_uap_t *uap, uint32_t category);

/** The item that an FRN announces under a profile, or 0. Undefined FRNs and categories may be reported at level 3. */
AST_API ast_dataitem_type_t ast_uap_get_dataitem(const ast_uap_t *uap, uint32_t category, uint32_t frn);

/** How many categories a variant profile lays out anew, at most. */
#define AST_UAP_MAX_OVERRIDES 4

/** One of the profiles above. */
typedef struct {
    bool valid;
    const char *name;     /* a short one, as a command line takes it: "standard", "cat021-2.1"; constant */
    const ast_uap_t *uap; /* its object */
    uint64_t override_count;
    uint32_t overrides[AST_UAP_MAX_OVERRIDES]; /* the categories that it lays out anew; none for the standard profile */
} ast_uap_info_t;

/** How many profiles there are. */
AST_API uint64_t ast_uap_get_number(void);

/** The profile at an index from 0, in the order in which smart decoding tries them; all zero beyond the last. */
AST_API ast_uap_info_t ast_uap_get_info(uint64_t index);

/* The two functions of each profile. */
AST_API uint32_t ast_uap_max_frn_standard(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat001_plot(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver023(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver026(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver21(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver24(uint32_t category);
AST_API uint32_t ast_uap_max_frn_asr10ss(uint32_t category);
AST_API uint32_t ast_uap_max_frn_asr10ss_mk2(uint32_t category);
AST_API uint32_t ast_uap_max_frn_thales(uint32_t category);
AST_API uint32_t ast_uap_max_frn_managair(uint32_t category);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_standard(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat001_plot(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver023(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver026(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver21(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver24(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_asr10ss(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_asr10ss_mk2(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_thales(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_managair(uint32_t category, uint32_t frn);

/* =================================================================================================== HTML fragments ==
 * The pieces that all detail views are made of. Each writes one fragment at the start of text, never beyond capacity,
 * and leaves it terminated. Styling is the application's, by the classes detail_table, even_row, hex_table, bin_table,
 * caption_row and data_row. Every second data row of a table is an even_row; that parity is kept per thread. */

/** Ends the list of cells of a table row. Compared as text. */
#define AST_HTML_TABLE_END_OF_ROW "AST_HTML_TABLE_END_OF_ROW"

/** Chooses how tables look in the whole process: 1 with borders, any other value (0 at start) by their class alone. */
AST_API void ast_html_set_flavor(uint32_t flavor);

/** "<h4>", the formatted text, "</h4>". */
AST_API void ast_html_gen_title_h4(char *text, uint64_t capacity, const char *format, ...) AST_PRINTF(3, 4);

/** "<p>", the formatted text, "</p>". */
AST_API void ast_html_gen_para(char *text, uint64_t capacity, const char *format, ...) AST_PRINTF(3, 4);

/** The start of a table of the class detail_table; the next data row is a plain one. */
AST_API void ast_html_gen_table_begin(char *text, uint64_t capacity);

/** One row. header is nonzero for a header row, after which the next data row is a plain one. The cells are texts, the
 *  last one AST_HTML_TABLE_END_OF_ROW; they are written as they are, without escaping. A null cell is empty. */
AST_API void ast_html_gen_table_row(char *text, uint64_t capacity, int32_t header, ...);

/** The end of a table. */
AST_API void ast_html_gen_table_end(char *text, uint64_t capacity);

/** count octets as a table of hexadecimal digits, 16 octets a row; empty for none. */
AST_API void ast_html_gen_hex_table(char *text, uint64_t capacity, const uint8_t *octets, uint64_t count);

/** count octets as a table of bits, four octets a row under their numbers and values; empty for none. */
AST_API void ast_html_gen_bin_table(char *text, uint64_t capacity, const uint8_t *octets, uint64_t count);

/** A link to a position, in degrees, on a map service. Returns the number of characters written: 0, with an empty text,
 *  when the service has no link. */
AST_API uint64_t ast_html_gen_location_map_link(char *text, uint64_t capacity, uint32_t service, double latitude,
                                                double longitude);

/* =========================================================================================================== values ==
 * Item layouts that several categories share. Each has a decoder that reads the item's octets into a plain record, and
 * most have views and an encoder; the registry binds them to every item type of that layout.
 *
 * A decoder returns its record with valid set when the item is valid and has exactly the layout's size, and all zero
 * (or with the defaults stated) otherwise. It does not look at the category, but where it says so at the item type.
 * An encoder writes the layout's octets into buffer and describes them in result. It takes the same record; nothing is
 * written, and result is not valid, when the record is missing or not valid, when the buffer is missing or too short,
 * or when a value is out of its range. Summaries and detail views are empty for items that the decoder does not take.
 */

/** A small number: message type, service identification, signal amplitude, track number. */
typedef struct {
    bool valid;
    uint32_t value;
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
    bool flag;   /* vertical rate: range exceeded; otherwise false */
    int32_t raw; /* the field as sent */
    double value;
} ast_scaled_value_t;

/** Time since midnight, UTC. The hour is not reduced to a day: the largest raw value is 36:24:31.992. */
typedef struct {
    bool valid;
    uint32_t raw; /* LSB 1/128 s, 24 bits */
    uint32_t hour;
    uint32_t minute;
    uint32_t second;
    uint32_t millisecond;
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
    int32_t raw_1;
    int32_t raw_2;
    double value_1;
    double value_2;
} ast_value_pair_t;

/** A Mode 3/A or Mode 2 code. */
typedef struct {
    bool valid;
    bool not_validated;
    bool garbled;
    bool changed; /* one bit carries this or the next, depending on the category; both read it */
    bool smoothed;
    uint32_t code; /* 12 bits, shown as four octal digits */
} ast_mode_3a_t;

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
    bool validated;
    bool garbled;
    int32_t flight_level; /* LSB 1/4 FL, 25 ft */
} ast_mode_c_t;

typedef struct {
    bool pulse; /* the pulse is there */
    bool low_quality;
} ast_pulse_t;

/** A Mode C reply as received, pulse by pulse. */
typedef struct {
    bool valid;
    bool validated; /* true by default */
    bool garbled;
    uint32_t code;                  /* the digits A, B, C, D of the pulses as four octal digits, not Gray-decoded */
    ast_pulse_t pulses[AST_PULSES]; /* by AST_PULSE_... */
} ast_mode_c_confidence_t;

/** A 24-bit ICAO aircraft address. */
typedef struct {
    bool valid;
    uint8_t octets[3]; /* as sent */
    uint32_t address;
} ast_target_address_t;

/** An aircraft identification of up to eight characters, trailing blanks kept. */
typedef struct {
    bool valid;
    char text[9];
} ast_aircraft_id_t;

/** A target identification and where it comes from. */
typedef struct {
    bool valid;
    uint32_t sti; /* 0 not from the target, 1 registration, 2 callsign from the target, 3 (default) undefined */
    char text[9];
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
    uint64_t count; /* REP, as sent */
    ast_bds_t registers[AST_MODES_MB_MAX_REGISTERS];
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

/* Time of day, three octets. The encoder writes raw unless it is 0, and then the time. */
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
 * and negative values as 2^32 - 1 + value. */
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

/* Mode C code, two octets. The encoder writes a negative level as 2^14 - 1 + value, so that it reads one lower. */
AST_API ast_mode_c_t ast_dataitem_mode_c_code_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_c_code_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                             const ast_dataitem_src_t *source);
AST_API void ast_dataitem_mode_c_code_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_mode_c_code_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Mode C code with confidence, four octets. The encoder takes the pulses from code, at most 65535, and the quality from
 * pulses. */
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
 * 0, and then raw. */
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

/* Aircraft identification, six octets: eight characters of six bits. The encoder fills a short text with blanks. */
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

/* ================================================================================================= Mode S registers ==
 * Comm-B replies: 56 bits from a transponder register, which its BDS code names. Bits are numbered 1 to 56 from the
 * most significant bit of the first octet. A register decoder returns its record with valid set for a valid register of
 * its number and seven octets, and all zero otherwise; a field whose status is false stays 0. */

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

AST_API void ast_bds_05_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_08_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_09_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_10_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_20_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_30_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_40_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_50_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);
AST_API void ast_bds_60_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds);

/* ===================================================================================================== enumerations ==
 * Coded fields of ADS-B and track items. `..._from_int` takes a raw field value and folds what is not defined into one
 * undefined value; `..._to_str` gives the text of a value, a fallback for one that is not defined. Constants, but for
 * ast_category_to_str. */

/* Texts come short or long. */
#define AST_STYLE_SHORT UINT32_C(0)
#define AST_STYLE_LONG UINT32_C(1)

/** Emitter category 0 to 24; 25 is undefined. */
AST_API uint32_t ast_emitter_category_from_int(uint32_t raw);
AST_API const char *ast_emitter_category_to_str(uint32_t value, uint32_t style);

/** Transponder communications capability 0 to 4; 7 is undefined. */
AST_API uint32_t ast_transponder_comm_cap_from_int(uint32_t raw);
AST_API const char *ast_transponder_comm_cap_to_str(uint32_t value);

/** ACAS status 0 to 3; 8 is undefined. The next two have the same values and texts. */
AST_API uint32_t ast_acas_status_from_int(uint32_t raw);
AST_API const char *ast_acas_status_to_str(uint32_t value);

/** Multiple navigation aids status. */
AST_API uint32_t ast_multi_navids_status_from_int(uint32_t raw);
AST_API const char *ast_multi_navids_status_to_str(uint32_t value);

/** Differential correction status. */
AST_API uint32_t ast_diff_correction_status_from_int(uint32_t raw);
AST_API const char *ast_diff_correction_status_to_str(uint32_t value);

/** Altitude type: 0 barometric, 1 geometric. */
AST_API const char *ast_altitude_type_to_str(uint32_t value);

/** Source of a geometric altitude 0 to 7; any other is 0, no source. */
AST_API uint32_t ast_geometric_altitude_source_from_int(uint32_t raw);
AST_API const char *ast_geometric_altitude_source_to_str(uint32_t value);

/** Source of a selected altitude 0 to 3; any other is 0, unknown. */
AST_API uint32_t ast_selected_altitude_source_from_int(uint32_t raw);
AST_API const char *ast_selected_altitude_source_to_str(uint32_t value, uint32_t style);

/** Emergency status 0 to 7, of which 7 has no text; 8 is undefined. */
AST_API uint32_t ast_emergency_status_from_int(uint32_t raw);
AST_API const char *ast_emergency_status_to_str(uint32_t value);

/** Friend-or-foe status: 0 no interrogation, 1 friend, 2 unknown, 3 no reply; any other is 0. */
AST_API uint32_t ast_iff_status_from_int(uint32_t raw);
AST_API const char *ast_iff_status_to_str(uint32_t value);

/** Flight status of a transponder 0 to 5; 8 is undefined. */
AST_API uint32_t ast_radar_flight_status_from_int(uint32_t raw);
AST_API const char *ast_radar_flight_status_to_str(uint32_t value);

/** "I048" for category 48, in a buffer of the calling thread. */
AST_API const char *ast_category_to_str(uint32_t category);

/* ========================================================================================================== queries ==
 * The common quantities of a record, whatever its category. */

/** A number in the unit that its accessor states. */
typedef struct {
    bool valid;
    double value;
} ast_quantity_t;

/** A Mode 3/A code and what is known of it. */
typedef struct {
    bool valid;
    uint32_t code; /* 12 bits, shown as four octal digits */
    bool not_validated;
    bool garbled;
    bool smoothed;
} ast_squawk_t;

typedef struct {
    bool valid;
    uint32_t address; /* 24 bits */
} ast_icao_address_t;

/** A WGS-84 position. */
typedef struct {
    bool valid;
    double latitude_deg;
    double longitude_deg;
} ast_coordinate_t;

/** A position as the sensor measured it: range, and azimuth clockwise from north. */
typedef struct {
    bool valid;
    double rho_nm;
    double theta_deg;
} ast_polar_coordinate_t;

/** Where an aircraft points and where it goes, in degrees. Valid when either is. */
typedef struct {
    bool valid;
    ast_quantity_t magnetic; /* magnetic heading */
    ast_quantity_t track;    /* true track angle */
} ast_heading_t;

typedef struct {
    bool valid;
    double vx_m_s;
    double vy_m_s;
} ast_cartesian_velocity_t;

/* Message types. */
#define AST_MSGTYPE_NORTH UINT32_C(1)
#define AST_MSGTYPE_SECTOR UINT32_C(2)
#define AST_MSGTYPE_PLOT UINT32_C(3)
#define AST_MSGTYPE_TRACK UINT32_C(4)
#define AST_MSGTYPE_ADSB UINT32_C(5)
#define AST_MSGTYPE_MLAT UINT32_C(6)
#define AST_MSGTYPE_VIDEO UINT32_C(7)
#define AST_MSGTYPE_SURFACE UINT32_C(8)
#define AST_MSGTYPE_MEASUREMENT_PLOT UINT32_C(9)
#define AST_MSGTYPE_MEASUREMENT_TRACK UINT32_C(10)
#define AST_MSGTYPE_SENSOR_CENTRIC_PLOT UINT32_C(11)
#define AST_MSGTYPE_SENSOR_CENTRIC_TRACK UINT32_C(12)
#define AST_MSGTYPE_TRACK_END UINT32_C(13)

/** The accessors of one category. A null slot means that its records do not carry the quantity. */
typedef struct {
    ast_sac_sic_t (*get_sacsic)(const ast_datarecord_t *record);
    ast_time_of_day_t (*get_timeofday)(const ast_datarecord_t *record);
    ast_uint_value_t (*get_msgtype)(const ast_datarecord_t *record);
    ast_uint_value_t (*get_tracknum)(const ast_datarecord_t *record);
    ast_squawk_t (*get_squawk)(const ast_datarecord_t *record);
    ast_aircraft_id_t (*get_callsign)(const ast_datarecord_t *record);
    ast_icao_address_t (*get_icaoaddr)(const ast_datarecord_t *record);
    ast_coordinate_t (*get_coordinate)(const ast_datarecord_t *record);
    ast_quantity_t (*get_flightlevel)(const ast_datarecord_t *record);
    ast_quantity_t (*get_selaltitude)(const ast_datarecord_t *record);
    ast_polar_coordinate_t (*get_polarcoord)(const ast_datarecord_t *record);
    ast_heading_t (*get_heading)(const ast_datarecord_t *record);
    ast_quantity_t (*get_speed)(const ast_datarecord_t *record);
    ast_cartesian_velocity_t (*get_cartesianvel)(const ast_datarecord_t *record);
    ast_quantity_t (*get_vrate)(const ast_datarecord_t *record);
} ast_datarecord_func_t;

/** The accessors of a category; all null for one without. */
AST_API ast_datarecord_func_t ast_datarecord_get_func(uint32_t category);

/* Each asks a record for one quantity. What a record that is not valid, or a category without the accessor, gives is
 * said with each; what a record that lacks the item gives is the category's accessor's to say. */

/** Data source. SAC and SIC 0xFFFFFFFF when not valid. */
AST_API ast_sac_sic_t ast_datarecord_get_sacsic(const ast_datarecord_t *record);

/** Time of day. All zero when not valid. */
AST_API ast_time_of_day_t ast_datarecord_get_timeofday(const ast_datarecord_t *record);

/** Message type, one of AST_MSGTYPE_... or 0. */
AST_API uint32_t ast_datarecord_get_msgtype(const ast_datarecord_t *record);

/** Track number. Value 0xFFFFFFFF when not valid. */
AST_API ast_uint_value_t ast_datarecord_get_tracknum(const ast_datarecord_t *record);

/** Mode 3/A code. Code 0xFFFFFFFF when not valid. */
AST_API ast_squawk_t ast_datarecord_get_squawk(const ast_datarecord_t *record);

/** Callsign, up to its first blank. All zero when not valid. */
AST_API ast_aircraft_id_t ast_datarecord_get_callsign(const ast_datarecord_t *record);

/** ICAO aircraft address. Address 0xFFFFFFFF when not valid. */
AST_API ast_icao_address_t ast_datarecord_get_icaoaddr(const ast_datarecord_t *record);

/** WGS-84 position. All zero when not valid, as are the next three. */
AST_API ast_coordinate_t ast_datarecord_get_wgs84coord(const ast_datarecord_t *record);

/** Flight level or altitude, in feet. */
AST_API ast_quantity_t ast_datarecord_get_flightlevel(const ast_datarecord_t *record);

/** Selected altitude, in feet. */
AST_API ast_quantity_t ast_datarecord_get_selaltitude(const ast_datarecord_t *record);

/** Polar position. */
AST_API ast_polar_coordinate_t ast_datarecord_get_polarcoord(const ast_datarecord_t *record);

/** Magnetic heading and true track angle. Both values -1 when not valid. */
AST_API ast_heading_t ast_datarecord_get_heading(const ast_datarecord_t *record);

/** Ground speed, in knots. All zero when not valid, as are the next two. */
AST_API ast_quantity_t ast_datarecord_get_speed(const ast_datarecord_t *record);

/** Cartesian velocity. */
AST_API ast_cartesian_velocity_t ast_datarecord_get_cartesianvel(const ast_datarecord_t *record);

/** Vertical rate, in feet per minute. */
AST_API ast_quantity_t ast_datarecord_get_vrate(const ast_datarecord_t *record);

/* Keywords: the same quantities by number, for lists, columns and filters. */
#define AST_KEYWORD_SACSIC UINT32_C(0)
#define AST_KEYWORD_TIMEOFDAY UINT32_C(1)
#define AST_KEYWORD_MSGTYPE UINT32_C(2)
#define AST_KEYWORD_TRACKNUM UINT32_C(3)
#define AST_KEYWORD_SQUAWK UINT32_C(4)
#define AST_KEYWORD_FLIGHTLEVEL UINT32_C(5)
#define AST_KEYWORD_SELALTITUDE UINT32_C(6)
#define AST_KEYWORD_CALLSIGN UINT32_C(7)
#define AST_KEYWORD_ICAOADDR UINT32_C(8)
#define AST_KEYWORD_WGS84COORD UINT32_C(9)
#define AST_KEYWORD_POLARCOORD UINT32_C(10)
#define AST_KEYWORD_SPEED UINT32_C(11)
#define AST_KEYWORD_HEADING UINT32_C(12)
#define AST_KEYWORD_CARTESIANVEL UINT32_C(13)
#define AST_KEYWORD_VRATE UINT32_C(14)
#define AST_KEYWORDS 15

/* How a keyword shows a WGS-84 position; any other selector reads as the first. */
#define AST_POSITION_DMS UINT32_C(0)           /* ast_latlong_to_str */
#define AST_POSITION_DMS_HIGH UINT32_C(1)      /* ast_latlong_to_str_high */
#define AST_POSITION_DMS_VERY_HIGH UINT32_C(2) /* ast_latlong_to_str_very_high */
#define AST_POSITION_DEGREES UINT32_C(3)       /* decimal degrees */

/** The short title of a keyword; empty for an unknown one. */
AST_API void ast_keyword_name(char *text, uint64_t capacity, uint32_t keyword);

/** What a keyword shows; empty for an unknown one. */
AST_API void ast_keyword_description(char *text, uint64_t capacity, uint32_t keyword);

/** Whether the first word of a text is the first word of a pattern. Null texts match nothing. */
AST_API bool ast_keyword_match(const char *text, const char *pattern, bool case_sensitive);

/** Whether a record has a valid value for a keyword, asked of keywords 3 to 5, 7 and 8; false for any other. */
AST_API bool ast_datarecord_contain_keyword(const ast_datarecord_t *record, uint32_t keyword);

/** Whether a record's value for a keyword is the one that a pattern gives.
 *  pattern  0: SAC × 1000 + SIC, decimal. 3: decimal. 4: octal digits. 5: flight level in hundreds of feet, which has
 * to be met exactly. 7: a whole word. 8: hexadecimal. Any other keyword never matches. */
AST_API bool ast_datarecord_match_keyword(const ast_datarecord_t *record, uint32_t keyword, const char *pattern,
                                          bool case_sensitive);

/** A record's value for a keyword as text; empty when it has none.
 *  position_format  one of AST_POSITION_..., for keyword 9 */
AST_API void ast_datarecord_get_keyword(char *text, uint64_t capacity, const ast_datarecord_t *record, uint32_t keyword,
                                        uint32_t position_format);

/* ======================================================================================================= categories ==
 * One group per category, in ascending order. */

/** The title of an item of one category, also of items that are known but not registered; "Unknown CATnnn Dataitem" for
 *  any other type, which categories 004, 021, 048 and 062 also report at level 2. Constant. */
AST_API const char *ast_dataitem_001_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_002_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_004_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_008_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_010_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_015_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_016_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_019_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_020_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_021_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_023_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_034_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_048_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_062_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_063_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_065_get_name(ast_dataitem_type_t type);
AST_API const char *ast_dataitem_240_get_name(ast_dataitem_type_t type);

/* Size rules of single items, shaped like the general ones. */

/** I008/100: three octets, the third with an FX bit, then single octets chained by theirs, at most 11 in all. */
AST_API uint64_t ast_dataitem_008_100_get_size(const uint8_t *data, uint64_t available);

/** I020/500: a compound item without registered subfields: DOP and SDP of six octets each, SDH of two. */
AST_API uint64_t ast_dataitem_020_500_get_size(const uint8_t *data, uint64_t available);

/** I021/271 of editions 1.0 to 2.1: one octet, two when the first has FX set. */
AST_API uint64_t ast_dataitem_021_A07_get_size(const uint8_t *data, uint64_t available);

/** I062/510: parts of three octets, chained by bit 1 of the third. Never 0: where less is available than a part needs,
 *  the chain ends with the part before it, and the first part always counts. */
AST_API uint64_t ast_dataitem_062_510_get_size(const uint8_t *data, uint64_t available);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0 (which I021/110 reports at level 3), id "---" ("--" in category 004) and name
 * "UNKNOWN_SUBFIELD_NAME". */

AST_API uint64_t ast_dataitem_004_100_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_100_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_100_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_100_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_004_120_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_120_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_120_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_120_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_004_170_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_170_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_170_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_170_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_004_171_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_171_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_171_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_171_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_600_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_600_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_600_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_600_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_601_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_601_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_601_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_601_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_602_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_602_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_602_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_602_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_604_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_604_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_604_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_604_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_625_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_625_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_625_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_625_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_626_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_626_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_626_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_626_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_015_627_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_627_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_627_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_627_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_021_110_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_110_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_110_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_110_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_021_220_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_220_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_220_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_220_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_021_295_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_295_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_295_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_295_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_034_050_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_034_050_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_034_050_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_034_050_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_034_060_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_034_060_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_034_060_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_034_060_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_048_120_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_048_120_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_048_120_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_048_120_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_048_130_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_048_130_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_048_130_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_048_130_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_110_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_110_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_110_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_110_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_290_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_290_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_290_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_290_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_295_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_295_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_295_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_295_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_340_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_340_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_340_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_340_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_380_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_380_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_380_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_380_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_390_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_390_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_390_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_390_get_name(uint32_t subfield_type);

AST_API uint64_t ast_dataitem_062_500_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_500_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_500_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_500_get_name(uint32_t subfield_type);

/* ----------------------------------------------------------------------------------------------------- category 034 --
 * Service messages of one radar. */

/** I034/050, station configuration and status. PSR and MDS stay octets. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        bool nogo;       /* not released for operational use */
        uint32_t rdpc;   /* data processing chain in use, 1 or 2 */
        bool rdpr;       /* the chain was restarted */
        bool ovl_rdp;    /* data processor overloaded */
        bool ovl_xmt;    /* transmission overloaded */
        bool msc;        /* monitoring system connected */
        bool time_valid; /* time source valid */
    } com;
    struct {
        bool present;
        uint32_t ant;   /* antenna in use, 1 or 2 */
        uint32_t ch_ab; /* channel: 0 none, 1 A, 2 B, 3 invalid */
        bool ovl;       /* overloaded */
        bool msc;       /* monitoring system connected */
    } ssr;
} ast_dataitem_034_050_t;

/** I034/060, system processing mode: how far the load is reduced, 0 for not at all. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t red_rdp;
        uint32_t red_xmt;
    } com;
    struct {
        bool present;
        bool pol; /* circular polarisation */
        uint32_t red_rad;
        uint32_t stc; /* sensitivity time control map */
    } psr;
    struct {
        bool present;
        uint32_t red_rad;
    } ssr;
    struct {
        bool present;
        uint32_t red_rad;
        bool clu_autonomous;
    } mds;
} ast_dataitem_034_060_t;

#define AST_034_070_MAX_COUNTERS 16

/** I034/070, message count values. An item may carry more than there is room for: counters holds the lesser of count
 * and AST_034_070_MAX_COUNTERS. */
typedef struct {
    bool valid;
    uint32_t count; /* REP, as sent */
    struct {
        uint32_t typ;
        uint32_t value;
    } counters[AST_034_070_MAX_COUNTERS];
} ast_dataitem_034_070_t;

/** I034/120, 3D position of the data source. Latitude and longitude are read as magnitude less 8388607 when negative.
 */
typedef struct {
    bool valid;
    int32_t height_raw;
    int32_t latitude_raw; /* LSB 180/2^23 degrees, as the next */
    int32_t longitude_raw;
    double height_m;
    double latitude_deg;
    double longitude_deg;
} ast_dataitem_034_120_t;

/** All of a category 034 record. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type;              /* I034/000 */
    ast_sac_sic_t data_source;                  /* I034/010 */
    ast_scaled_value_t sector;                  /* I034/020 */
    ast_time_of_day_t time_of_day;              /* I034/030 */
    ast_scaled_value_t antenna_rotation_period; /* I034/041 */
    ast_dataitem_034_050_t station_status;      /* I034/050 */
    ast_dataitem_034_060_t processing_mode;     /* I034/060 */
    ast_dataitem_034_070_t message_counts;      /* I034/070 */
} ast_datarecord_034_t;

AST_API void ast_dataitem_034_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_dataitem_034_050_t ast_dataitem_034_050_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_034_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_034_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);
AST_API ast_dataitem_034_060_t ast_dataitem_034_060_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_034_060_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_034_060_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);
AST_API ast_dataitem_034_070_t ast_dataitem_034_070_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_034_070_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_034_070_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_dataitem_034_120_t ast_dataitem_034_120_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_034_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_034_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** Decodes all items of a category 034 record. Not valid for a record that is not valid or of another category; items
 *  that have no member are reported at level 2. */
AST_API ast_datarecord_034_t ast_datarecord_034_disassemble(const ast_datarecord_t *record);

/** Encodes the members message_type to antenna_rotation_period that are valid. Encoders may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_034_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_034_t *flat,
                                                     ast_uap_t uap);

/* ----------------------------------------------------------------------------------------------------- category 048 --
 * Plots and local tracks of one radar. */

/** I048/020, target report descriptor. */
typedef struct {
    bool valid;
    uint32_t typ; /* 0 no detection, 1 PSR, 2 SSR, 3 both, 4 Mode S all-call, 5 roll-call, 6 and 7 the same with PSR */
    bool sim;
    uint32_t rdp; /* processing chain, 1 (by default) or 2 */
    bool spi;
    bool rab; /* from a fixed transponder */
    bool tst;
    bool me;
    bool mi;
    uint32_t foe_fri; /* the friend-or-foe status; received octets give 0 or 2 only */
} ast_dataitem_048_020_t;

#define AST_048_030_MAX_CODES 23

/** I048/030, warning and error conditions. */
typedef struct {
    bool valid;
    uint32_t count; /* the octets of the item */
    uint32_t codes[AST_048_030_MAX_CODES];
} ast_dataitem_048_030_t;

/** I048/040, measured position. */
typedef struct {
    bool valid;
    uint32_t rho_raw;   /* LSB 1/256 NM */
    uint32_t theta_raw; /* LSB 360/2^16 degrees */
    double rho_nm;
    double theta_deg;
} ast_dataitem_048_040_t;

/** I048/042, calculated position; read as magnitude less 32767 when negative. */
typedef struct {
    bool valid;
    int32_t x_raw; /* LSB 1/128 NM */
    int32_t y_raw; /* LSB 1/128 NM */
} ast_dataitem_048_042_t;

/** I048/050, Mode 2 code. */
typedef struct {
    bool valid;
    bool not_validated;
    bool garbled;
    bool smoothed;
    uint32_t code; /* 12 bits, shown as four octal digits */
} ast_dataitem_048_050_t;

/** I048/110, height measured by a 3D radar, LSB 25 ft; read as magnitude less 8191 when negative. */
typedef struct {
    bool valid;
    int32_t height_ft;
} ast_dataitem_048_110_t;

/** I048/130, radar plot characteristics. The other subfields stay octets. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        int32_t raw; /* LSB 360/2^13 degrees */
        double deg;
    } srl; /* SSR plot runlength */
    struct {
        bool present;
        int32_t value;
    } srr; /* number of received replies */
    struct {
        bool present;
        int32_t value; /* the octet, unsigned; shown as -value dBm */
    } sam;             /* amplitude of the reply */
} ast_dataitem_048_130_t;

/** I048/170, track status. */
typedef struct {
    bool valid;
    bool cnf;     /* tentative */
    uint32_t rad; /* 0 combined, 1 PSR, 2 SSR, 3 (by default) invalid */
    bool dou;     /* low confidence */
    bool man;     /* horizontal manoeuvre */
    uint32_t cdm; /* 0 maintaining, 1 climbing, 2 descending, 3 (by default) invalid */
} ast_dataitem_048_170_t;

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

/** I048/230, communications and ACAS capability and flight status. */
typedef struct {
    bool valid;
    uint32_t com;  /* transponder communications capability; 7 by default */
    uint32_t stat; /* flight status; 8 by default */
    bool mssc;
    bool arc; /* altitude in steps of 25 ft, otherwise 100 ft */
    bool aic;
    bool b1a;
    uint8_t b1b; /* four bits */
} ast_dataitem_048_230_t;

/** I048/260, ACAS resolution advisory report. */
typedef struct {
    bool valid;
    ast_bds_t bds; /* register 3,0 */
} ast_dataitem_048_260_t;

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

AST_API ast_dataitem_048_020_t ast_dataitem_048_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** Writes one octet, or two when tst, me, mi or foe_fri is set; takes a buffer of two in any case. ME and MI go to bits
 * 7 and 6 of the second octet, where the decoder does not look for them. */
AST_API void ast_dataitem_048_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);
AST_API ast_dataitem_048_030_t ast_dataitem_048_030_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_030_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_030_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** Takes an item of four octets of any type. */
AST_API ast_dataitem_048_040_t ast_dataitem_048_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** Rounds range and azimuth and stores the raw values back when one of them is positive; writes the raw ones otherwise.
 */
AST_API void ast_dataitem_048_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);
AST_API ast_dataitem_048_042_t ast_dataitem_048_042_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_042_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_042_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_dataitem_048_050_t ast_dataitem_048_050_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_050_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);
AST_API ast_dataitem_048_110_t ast_dataitem_048_110_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_110_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_110_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** The subfield views of I048/120, and the detail views of I048/130, are empty. */
AST_API void ast_subfield_048_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_048_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);
AST_API ast_dataitem_048_130_t ast_dataitem_048_130_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_048_130_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_048_130_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);
AST_API ast_dataitem_048_170_t ast_dataitem_048_170_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_dataitem_048_210_t ast_dataitem_048_210_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** Undefined capabilities and flight statuses are reported at level 2. */
AST_API ast_dataitem_048_230_t ast_dataitem_048_230_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_048_230_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_048_230_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
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

/** Decodes all items of a category 048 record. Not valid for a record that is not valid or of another category; items
 *  that have no member are reported at level 0. */
AST_API ast_datarecord_048_t ast_datarecord_048_disassemble(const ast_datarecord_t *record);

/** Encodes the members that are valid of data_source, target_report, polar_position, mode_2, mode_3a, mode_c,
 *  time_of_day, track_number, polar_velocity, target_address and aircraft_id. Encoders may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_048_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_048_t *flat,
                                                     ast_uap_t uap);

/* ======================================================================================================= extensions ==
 * Beyond the interface proper. */

/** Decode as ast_datablock_decode, ast_datablock_smart_decode and ast_datablock_001_mixuap_decode do, into a block that
 *  the caller uses again and again. Only what the last block filled is cleared, which makes short blocks several times
 *  as fast. The block is all zero before its first use, and then as the last of these functions left it. */
AST_API void ast_datablock_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available, ast_uap_t uap);
AST_API void ast_datablock_smart_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available);
AST_API void ast_datablock_001_mixuap_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available);

#ifdef __cplusplus
}
#endif

#endif
