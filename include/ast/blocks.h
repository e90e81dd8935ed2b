/* Blocks and records: decoding, encoding, copying and modifying them, splitting and putting together blocks. */
#ifndef AST_BLOCKS_H
#define AST_BLOCKS_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/** Decodes the block at data into a block that the caller uses again and again, with one profile.
 *  block      overwritten as far as its counts reach; what lies behind them, in the block and in its records, is
 *             unspecified. It need not be initialised.
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

/** The three by value, all zero behind the counts. Each clears and copies a whole block, 54 KB whatever it holds, which
 * costs more than decoding a short one; outside of a quick trial, decode into a block of your own. */
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

/* -------------------------------------------------------------------------------------------------------- splitting --
 * An extension: a block split into its items, for those who walk records rather than keep them. A record takes 32
 * octets, an item 12, and there is no limit but the room that the caller gives. */

/* Why splitting a block ended. */
#define AST_SPLIT_WHOLE UINT32_C(0)       /* it did not end early: the records fill LEN exactly */
#define AST_SPLIT_NO_HEADER UINT32_C(1)   /* there are fewer than three octets, or no data */
#define AST_SPLIT_LENGTH UINT32_C(2)      /* LEN is less than 3, or more than what is available */
#define AST_SPLIT_FSPEC_CUT UINT32_C(3)   /* an FSPEC runs past what is available */
#define AST_SPLIT_FSPEC_EMPTY UINT32_C(4) /* an FSPEC announces nothing */
#define AST_SPLIT_NO_PROFILE UINT32_C(5)  /* a record of category 001 does not say whether it is a plot or a track */
#define AST_SPLIT_NO_ITEM UINT32_C(6)     /* an FRN announces no item: it is spare or undefined in the profile */
#define AST_SPLIT_UNSUPPORTED UINT32_C(7) /* an FRN announces an item that is known by its type only */
#define AST_SPLIT_NO_LENGTH UINT32_C(8)   /* an explicit-length item says that its length is 0 */
#define AST_SPLIT_ITEM_CUT UINT32_C(9)    /* an item runs past what is available, or has an empty primary subfield */
#define AST_SPLIT_OVERRUN UINT32_C(10)    /* the last record runs past LEN */
#define AST_SPLIT_NO_ROOM UINT32_C(11)    /* there are more records or items than there is room for */

/** One item of a split block. */
typedef struct {
    ast_dataitem_type_t type; /* as that of ast_dataitem_t: category × 1000 + item */
    uint32_t offset;          /* of its first octet, from the CAT octet */
    uint32_t size;            /* octets */
} ast_split_item_t;

/** One record of a split block. */
typedef struct {
    uint32_t offset;      /* of its FSPEC, from the CAT octet */
    uint32_t size;        /* FSPEC and items, in octets */
    uint32_t first_item;  /* the place of its first item among those of the block */
    uint32_t item_count;  /* they follow one another in FRN order */
    const ast_uap_t *uap; /* the profile that it was read with: the caller's, or one of the exported ones */
} ast_split_record_t;

/** A split block: the caller's room, and what was found. */
typedef struct {
    /* The caller's. A block has at most 65532 records and items up to its LEN. */
    ast_split_record_t *records;
    uint64_t record_room;
    ast_split_item_t *items;
    uint64_t item_room;
    const ast_uap_t
        *remembered; /* the profile that the choice of one begins with, kept up to date by it; null at first */

    /* The result. */
    const uint8_t *data; /* its CAT octet */
    uint64_t available;  /* octets behind it that may be read, CAT included */
    uint32_t category;
    uint64_t length; /* the whole block in octets, from LEN */
    const ast_uap_t
        *uap; /* the profile: the caller's, or the chosen one; AST_UAP_STANDARD where each record has its own */
    uint64_t record_count;
    uint64_t item_count; /* of these records */
    uint32_t reason;     /* why it ended, AST_SPLIT_... */
    bool valid;          /* the reason is AST_SPLIT_WHOLE */

    /* Where it ended, unless it is valid. */
    uint64_t end;              /* offset of the item, FSPEC or record at fault, from the CAT octet */
    ast_split_record_t broken; /* the record at fault, with size 0: its items before the fault follow item_count */
    uint32_t broken_frn;       /* the FRN of the item at fault, 0 for none */
    ast_dataitem_type_t broken_type; /* what that FRN announces */
} ast_split_t;

/** Splits the block at data into records and items, with one profile or with the first that fits.
 *  split      its room and `remembered` are read, and all else is overwritten
 *  data       the CAT octet; borrowed by the result
 *  available  octets that may be read
 *  uap        the profile; borrowed by the result. Null chooses as ast_datablock_smart_decode_into does, but remembers
 *             the profile in `split` rather than in the process, so that the result depends on nothing else; and where
 * no profile fits, the result is that of the one that got furthest, the first of equals. Returns `split->valid`.
 * Reports what decoding the block reports, except for a 65th record, which is as good as any. */
AST_API bool ast_datablock_split(ast_split_t *split, const uint8_t *data, uint64_t available, const ast_uap_t *uap);

/** An item of a split block by its place, those of the record at fault included, as decoding gives it. Not valid beyond
 *  them. */
AST_API ast_dataitem_t ast_split_get_item(const ast_split_t *split, uint64_t place);

/* ------------------------------------------------------------------------------------------------- putting together --
 * An extension: a block of records that are encoded already, such as those of a decoded block, and what encoding,
 * modifying, converting or JSON gives. As many as LEN can say; what the buffer holds is a whole block at any time.
 *
 *     uint64_t length = ast_datablock_begin(buffer, sizeof buffer, block.category);
 *     for (uint64_t r = 0; length && r < block.record_count; ++r)
 *         length = ast_datablock_append(buffer, sizeof buffer, block.records[r].data, block.records[r].size);
 */

/** Begins a block without records in buffer: CAT and LEN.
 *  Returns its octets, 3; or 0, and nothing is written, when the buffer is missing or shorter, or for a category above
 *  255. */
AST_API uint64_t ast_datablock_begin(uint8_t *buffer, uint64_t length, uint32_t category);

/** Appends an encoded record to the block in buffer, whose LEN grows by its size.
 *  buffer  begins with the block, as ast_datablock_begin or this function left it, or as it was encoded or received
 *  length  of the buffer, in octets
 *  record  the first octet of its FSPEC; it is not looked at whether the octets are a record of that category. They are
 *          copied as they stand before the call, wherever that is: a record that was written into the buffer right
 *          behind the block, at buffer + LEN, stays there. A record that is to be appended later must not stand where
 *          an earlier one is copied to.
 *  size    FSPEC and items, in octets
 *  Returns the octets of the block, LEN; or 0, and the buffer is left as it is, when buffer or record is missing, when
 *  size is 0, as that of a record that is not valid is, when the LEN in the buffer is less than 3 or more than length,
 *  or when the block would be longer than the buffer or than 65535 octets. */
AST_API uint64_t ast_datablock_append(uint8_t *buffer, uint64_t length, const uint8_t *record, uint64_t size);

AST_END_DECLARATIONS

#endif
