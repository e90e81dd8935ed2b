/* Category 004: safety net messages, alerts between and about aircraft. */
#ifndef AST_CAT004_H
#define AST_CAT004_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 004, also of one that is known but not registered; "Unknown CAT004 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_004_get_name(ast_dataitem_type_t type);

/* The safety net functions, by the code that I004/000 and I004/060 give them: the short id, such as "STCA", and the
 * name, such as "Short Term Conflict Alert". Both are "UNDEFINED" for a code that is not in use. Constant. */
AST_API const char *ast_snet_message_type_get_id(uint32_t code);
AST_API const char *ast_snet_message_type_get_name(uint32_t code);

/* I004/000, message type: the safety net function that reports, or 1 for a message that says that the server is alive.
 * Its value is that of ast_dataitem_message_type_decode. */
AST_API void ast_dataitem_004_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_004_000_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I004/040, alert identifier. */
typedef struct {
    bool valid;
    uint32_t value; /* the number that the server gave the alert, 0 to 65535 */
} ast_dataitem_004_040_t;
/** Takes an item of two octets of any type. */
AST_API ast_dataitem_004_040_t ast_dataitem_004_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_004_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
/** Refuses a number above 65535. */
AST_API void ast_dataitem_004_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                         const ast_dataitem_src_t *source);

#define AST_004_060_FUNCTIONS 7

/** I004/060, safety net function and system status, one to six octets. The first octet alone is read; further ones are
 *  reported at level 0 each time the item is decoded or shown. */
typedef struct {
    bool valid;
    uint32_t function_count; /* seven for each octet of the item */
    struct {
        uint32_t code;                  /* as ast_snet_message_type_get_id takes it */
        bool status;                    /* the function is in operation */
    } functions[AST_004_060_FUNCTIONS]; /* MRVA, RAMLD, RAMHD, MSAW, APW, CLAM, STCA */
} ast_dataitem_004_060_t;
AST_API ast_dataitem_004_060_t ast_dataitem_004_060_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_004_060_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_004_060_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "--" and name "UNKNOWN_SUBFIELD_NAME". The summary of a subfield that is not
 * read is "NOT_IMPLEMENTED", whether it is present or not. */

/** I004/100, area definition. The other subfields stay octets. The detail views are empty. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        char text[9]; /* up to eight characters, trailing blanks kept */
    } an;             /* area name */
} ast_dataitem_004_100_t;
AST_API uint64_t ast_dataitem_004_100_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_100_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_100_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_100_get_name(uint32_t subfield_type);
AST_API ast_dataitem_004_100_t ast_dataitem_004_100_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_004_100_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_004_100_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I004/120, conflict characteristics. The other subfields stay octets; the conflict duration is taken as one octet. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t table;    /* which table of properties, 0 to 15 */
        uint32_t property; /* 0 to 7, its meaning is the table's */
        bool criticality;  /* the severity is high, otherwise low */
    } cc;                  /* conflict classification */
} ast_dataitem_004_120_t;
AST_API uint64_t ast_dataitem_004_120_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_120_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_120_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_120_get_name(uint32_t subfield_type);
AST_API ast_dataitem_004_120_t ast_dataitem_004_120_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_004_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);

/** I004/170, aircraft identification and characteristics 1. The other subfields stay octets. The registry does not know
 *  the summary function: the views of the whole item read "NOT_IMPLEMENTED" for every subfield. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t code; /* 12 bits, shown as four octal digits */
    } m31;             /* Mode 3/A code */
} ast_dataitem_004_170_t;
AST_API uint64_t ast_dataitem_004_170_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_170_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_170_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_170_get_name(uint32_t subfield_type);
AST_API ast_dataitem_004_170_t ast_dataitem_004_170_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_004_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);

/** I004/171, aircraft identification and characteristics 2: the same of the other aircraft, in the flat record alone.
 */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t code; /* 12 bits, shown as four octal digits */
    } m32;             /* Mode 3/A code */
} ast_dataitem_004_171_t;
AST_API uint64_t ast_dataitem_004_171_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_171_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_171_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_171_get_name(uint32_t subfield_type);

/** All of a category 004 record. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type;                   /* I004/000 */
    ast_sac_sic_t data_source;                       /* I004/010 */
    ast_time_of_day_t time_of_message;               /* I004/020 */
    ast_uint_value_t track_number_1;                 /* I004/030 */
    ast_uint_value_t track_number_2;                 /* I004/035 */
    ast_dataitem_004_040_t alert_identifier;         /* I004/040 */
    ast_dataitem_004_060_t function_status;          /* I004/060 */
    ast_dataitem_004_100_t area_definition;          /* I004/100 */
    ast_dataitem_004_120_t conflict_characteristics; /* I004/120 */
    ast_dataitem_004_170_t aircraft_1;               /* I004/170 */
    ast_dataitem_004_171_t aircraft_2;               /* I004/171 */
} ast_datarecord_004_t;

/** Decodes all items of a category 004 record into flat, whatever it held before, and returns flat; null for none. Not
 *  valid for a record that is not valid or of another category; items that have no member are reported at level 0. */
AST_API ast_datarecord_004_t *ast_datarecord_004_disassemble(ast_datarecord_004_t *flat,
                                                             const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
