/* What blocks, records and items look like once decoded, and what an encoder is given. */
#ifndef AST_RECORDS_H
#define AST_RECORDS_H

#include "base.h"

AST_BEGIN_DECLARATIONS

/** Records that a decoded block has room for. */
#define AST_DATABLOCK_MAX_RECORDS 64

/** Items that a decoded record has room for. */
#define AST_DATARECORD_MAX_ITEMS 32

/** Subfields that a decoded compound item has room for. */
#define AST_SUBFIELDS_MAX 35

/** The most elements that a repetitive item carries: REP, its repetition count, is one octet. */
#define AST_REPETITIONS_MAX 255

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
    uint32_t (*max_frn)(uint32_t category); /* the highest FRN to encode in a category; 0 for none */
    ast_dataitem_type_t (*get_dataitem)(uint32_t category, uint32_t frn); /* or AST_DATAITEM_NONE */
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
    const uint8_t *data;      /* its first octet, in the caller's octets */
    uint64_t size;            /* octets */
    ast_dataitem_type_t type; /* category × 1000 + item */
    bool valid;               /* its size could be told */
    uint8_t following; /* octets known to follow it in the caller's buffer: 255 for 255 or more, 0 when not known */
} ast_dataitem_t;

/** One decoded record. */
typedef struct {
    const uint8_t *data;                            /* the first octet of its FSPEC */
    uint64_t size;                                  /* FSPEC and items, in octets; 0 unless valid */
    uint32_t category;                              /* of its block */
    ast_uap_t uap;                                  /* the profile it was decoded with */
    ast_fspec_t fspec;                              /* the items that it announces */
    ast_dataitem_t items[AST_DATARECORD_MAX_ITEMS]; /* in FRN order; the first item_count are meaningful */
    uint64_t item_count;                            /* at most AST_DATARECORD_MAX_ITEMS */
    bool valid;
} ast_datarecord_t;

/** One decoded block. Large: keep it in static or heap storage. */
typedef struct {
    const uint8_t *data;                                 /* its CAT octet */
    uint64_t length;                                     /* the whole block in octets, from LEN */
    uint32_t category;                                   /* CAT */
    ast_uap_t uap;                                       /* the profile it was decoded with */
    const uint8_t *records_data;                         /* its first record: data + 3 */
    uint64_t records_length;                             /* LEN - 3 */
    ast_datarecord_t records[AST_DATABLOCK_MAX_RECORDS]; /* in their order; the first record_count are meaningful */
    uint64_t record_count;                               /* at most AST_DATABLOCK_MAX_RECORDS */
    bool valid;                                          /* the records fill LEN exactly */
} ast_datablock_t;

/** One item to encode: its type and its value record, as the item's decoder returns it. The value is not const because
 *  some encoders store the raw values that they wrote back into it. */
typedef struct {
    ast_dataitem_type_t type; /* of the item to write */
    void *value;              /* the value record, as ast_dataitem_048_040_t for 48040 */
} ast_dataitem_src_t;

typedef ast_dataitem_src_t ast_dataitem_value_t;

/** One record to encode. Items in any order; the first of a type counts. */
typedef struct {
    uint32_t category;                                  /* of the block that it goes into */
    ast_uap_t uap;                                      /* the profile that says at which FRN an item stands */
    ast_dataitem_src_t items[AST_DATARECORD_MAX_ITEMS]; /* the first item_count count */
    uint64_t item_count;                                /* up to AST_DATARECORD_MAX_ITEMS */
} ast_datarecord_src_t;

/** One block to encode. */
typedef struct {
    uint32_t category;                                       /* CAT */
    ast_uap_t uap;                                           /* the profile of the block, which the result names */
    ast_datarecord_src_t records[AST_DATABLOCK_MAX_RECORDS]; /* the first record_count count */
    uint64_t record_count;                                   /* 1 to AST_DATABLOCK_MAX_RECORDS */
} ast_datablock_src_t;

/** New values for items that a record already has. */
typedef struct {
    ast_dataitem_src_t items[AST_DATARECORD_MAX_ITEMS]; /* the first item_count count */
    uint64_t item_count;                                /* up to AST_DATARECORD_MAX_ITEMS */
} ast_dataitem_src_list_t;

AST_END_DECLARATIONS

#endif
