/* Compound items: a primary subfield, laid out like an FSPEC, and the subfields that it announces in bit order.
 *
 * A subfield type is item type × 1000 + subfield number, counted from 1: 48130001 is the first subfield of I048/130. */
#ifndef AST_COMPOUNDS_H
#define AST_COMPOUNDS_H

#include "records.h"

AST_BEGIN_DECLARATIONS

#define AST_SUBFIELD_TYPE(item_type, number) (UINT32_C(1000) * (item_type) + (number))

/** The five handlers of a subfield type. A null slot means "not supported". The views take the whole compound item. */
typedef struct {
    /* as ast_subfield_get_size, _get_id, _get_name, _get_summary and _get_detail_html, for subfields of this item */
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
    uint32_t type;       /* item type × 1000 + number */
    bool valid;          /* set in every listed entry, present or not */
} ast_subfield_t;

/** A decoded compound item: an entry for each subfield that its primary subfield has a bit for, present or not, as far
 *  as the item defines them. */
typedef struct {
    bool valid;
    ast_fspec_t primary; /* announces the subfields */
    ast_subfield_t subfields[AST_SUBFIELDS_MAX];
    uint64_t subfield_count; /* entries, absent ones included */
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

AST_END_DECLARATIONS

#endif
