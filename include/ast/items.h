/* One item: its name, size, octets, summary and details; size rules. */
#ifndef AST_ITEMS_H
#define AST_ITEMS_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/** The five handlers of an item type. A null slot means "not supported". */
typedef struct {
    /* as ast_dataitem_get_size, _get_name, _get_summary, _get_detail_html and _encode, for items of this type */
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
 *  or too long for the buffer; an item type without an encoder is reported at level 2.
 *  Positions of eight octets are always written in units of 180/2^25 degrees, so what is written as I010/041 or
 * I016/400 reads as a 64th of its latitude and longitude, and I021/131 as a 32nd; ast_datarecord_from_json writes such
 * positions in their own units. */
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

AST_END_DECLARATIONS

#endif
