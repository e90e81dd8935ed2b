/* The pieces of HTML that all detail views are made of.
 *
 * Each writes one fragment at the start of text, never beyond capacity,
 * and leaves it terminated. Styling is the application's, by the classes detail_table, even_row, hex_table, bin_table,
 * caption_row and data_row. Every second data row of a table is an even_row; that parity is kept per thread. */
#ifndef AST_HTML_H
#define AST_HTML_H

#include "base.h"

AST_BEGIN_DECLARATIONS

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

AST_END_DECLARATIONS

#endif
