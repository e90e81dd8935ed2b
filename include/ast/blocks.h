/* Blocks and records: decoding, encoding, copying and modifying them. */
#ifndef AST_BLOCKS_H
#define AST_BLOCKS_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/** Decodes the block at data into a block that the caller uses again and again, with one profile.
 *  block      overwritten; all zero before its first use, and then as the last of these functions left it
 *  data       the CAT octet; borrowed by the block
 *  available  octets that may be read
 *  The block is valid when LEN fits what is available and the records fill it exactly. Otherwise it holds the records
 *  before the fault, at most 64; a 65th record is reported at level 4 and the octets at level 0. */
AST_API void ast_datablock_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available, ast_uap_t uap);

/** The same with the first profile that fits: for category 001 the mix of plots and tracks, then the profile that the
 *  process used last, then the exported profiles from AST_UAP_STANDARD to AST_UAP_MANAGAIR in their order. When none
 *  fits, the result is that of AST_UAP_MANAGAIR, not valid. Attempts that fail may log. */
AST_API void ast_datablock_smart_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available);

/** The same for a category 001 block in which plots and tracks alternate: each record with AST_UAP_CAT001_PLOT or
 *  AST_UAP_STANDARD, as TYP of I001/020 says. The block names AST_UAP_STANDARD, each record its own profile. */
AST_API void ast_datablock_001_mixuap_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available);

/** The three by value. Each clears and copies a whole block, 54 KB whatever it holds, which costs more than decoding a
 *  short one; outside of a quick trial, decode into a block of your own. */
AST_API ast_datablock_t ast_datablock_decode(const uint8_t *data, uint64_t available, ast_uap_t uap);
AST_API ast_datablock_t ast_datablock_smart_decode(const uint8_t *data, uint64_t available);
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

AST_END_DECLARATIONS

#endif
