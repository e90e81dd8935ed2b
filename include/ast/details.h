/* The details of items, handed over piece by piece: what the HTML fragments of ..._get_detail_html are made of, for
 * those who show them in another way.
 *
 * A view is a sequence of titles, paragraphs, tables of texts and tables of bits. All that is handed over belongs to
 * the call that hands it over. */
#ifndef AST_DETAILS_H
#define AST_DETAILS_H

#include "compounds.h"
#include "items.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/* What a piece of text is. */
#define AST_DETAIL_PLAIN UINT32_C(0)    /* words of the library or of the application's lookups, numbers */
#define AST_DETAIL_RECEIVED UINT32_C(1) /* printable ASCII characters that the item carries, of any kind */
#define AST_DETAIL_STRONG UINT32_C(2)   /* such characters that are to stand out */

/** A piece of text, as it is to be read: nothing is escaped. */
typedef struct {
    const char *text; /* not terminated */
    uint32_t size;    /* in characters */
    uint32_t kind;    /* AST_DETAIL_... */
} ast_detail_text_t;

/** A link to a position on a map. */
typedef struct {
    uint32_t service;  /* AST_MAP_... */
    double latitude;   /* in degrees */
    double longitude;  /* in degrees */
    const char *title; /* the name of the service */
    const char *url;   /* of the map */
} ast_detail_link_t;

/** Takes the pieces of a view in their order; context is what the caller handed in. A null function passes over pieces
 *  of its kind. Pieces of a title or paragraph follow each other without a gap. */
typedef struct {
    void (*title)(void *context, const ast_detail_text_t *pieces, uint64_t count);       /* of what follows it */
    void (*paragraph)(void *context, const ast_detail_text_t *pieces, uint64_t count);   /* may be of an empty text */
    void (*table_begin)(void *context, const ast_detail_text_t *header, uint64_t count); /* rows follow */
    void (*row)(void *context, const ast_detail_text_t *cells, uint64_t count); /* as many cells as the header */
    /* the link stands in the place of the last cell, which is not counted */
    void (*link_row)(void *context, const ast_detail_text_t *cells, uint64_t count, const ast_detail_link_t *link);
    void (*table_end)(void *context);                                   /* behind the last row */
    void (*bits)(void *context, const uint8_t *octets, uint64_t count); /* octets to be shown as bits, at least one */
} ast_details_visitor_t;

/** Hands over the details of an item: what ast_dataitem_get_detail_html writes. Nothing for an item that is not valid
 *  or has no detail view, or without a visitor. */
AST_API void ast_dataitem_get_details(const ast_dataitem_t *item, const ast_details_visitor_t *visitor, void *context);

/** Hands over the details of one subfield of a compound item: what ast_subfield_get_detail_html writes. */
AST_API void ast_subfield_get_details(const ast_dataitem_t *item, uint32_t subfield_type,
                                      const ast_details_visitor_t *visitor, void *context);

/** Hands over the details of a Mode S register: what ast_bds_get_detail_html writes. */
AST_API void ast_bds_get_details(const ast_bds_t *bds, const ast_details_visitor_t *visitor, void *context);

AST_END_DECLARATIONS

#endif
