/* What every published field means, and records as JSON, both ways.
 *
 * Beside the value records and views of each item, which read it as its users know it, stands the published reading:
 * every field of every item of all 27 published categories in their newest edition (category 021 also in editions 0.23,
 * 0.26, 2.1 and 2.4; Reserved Expansion Fields of 021, 048 and 062; Mode S registers of ICAO Doc 9871), with its bits,
 * its unit and step, and the texts of its codes. docs/json.md shows the JSON and explains its shape. */
#ifndef AST_SCHEMA_H
#define AST_SCHEMA_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/* -------------------------------------------------------------------------------------------------------- profiles --
 * Two profiles lay out every published category in its newest edition, category 021 included. They are not among those
 * that ast_uap_get_number counts, so that smart decoding never tries them. */
AST_API extern ast_uap_t AST_UAP_PUBLISHED;       /* "published": category 001 as tracks, category 007 as downlink */
AST_API extern ast_uap_t AST_UAP_PUBLISHED_OTHER; /* "published-other": 001 as plots, 007 as uplink; else the same */

/** The highest FRN that the newest edition of a category defines; 0 for a category that is not published. */
AST_API uint32_t ast_uap_max_frn_published(uint32_t category);
AST_API uint32_t ast_uap_max_frn_published_other(uint32_t category);

/** The item that an FRN announces in the newest edition of a category, or 0. */
AST_API ast_dataitem_type_t ast_uap_get_dataitem_published(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_published_other(uint32_t category, uint32_t frn);

/** The size in octets of the item at data by its published layout, which also tells that of items that the registry
 *  knows by name alone; 0 when no edition describes the type or the octets do not hold all of it. A chain of octets is
 *  followed to its end, however long. The profile tells which edition is meant, as that of a decoded record does. */
AST_API uint64_t ast_dataitem_get_published_size(const uint8_t *data, uint64_t available, ast_dataitem_type_t type,
                                                 ast_uap_t uap);

/* ---------------------------------------------------------------------------------------------------------- fields --
 */

/* Kinds of fields that carry a value. */
#define AST_FIELD_RAW UINT32_C(0)  /* bits without a further meaning; from 24 bits on octets in hexadecimal digits */
#define AST_FIELD_CODE UINT32_C(1) /* a number that stands for a text */
#define AST_FIELD_UNSIGNED UINT32_C(2) /* a number or a quantity from 0 on */
#define AST_FIELD_SIGNED UINT32_C(3)   /* one in two's complement */
#define AST_FIELD_OCTAL UINT32_C(4)    /* a code of octal digits */
#define AST_FIELD_ASCII UINT32_C(5)    /* characters of eight bits */
#define AST_FIELD_ICAO UINT32_C(6)     /* characters of six bits, as in a target identification */
#define AST_FIELD_REGISTER                                                                                             \
    UINT32_C(7)                        /* a Mode S register: its seven octets, and its number behind them in 64 bits   \
                                        */
#define AST_FIELD_EXPLICIT UINT32_C(8) /* octets behind a length that counts itself */

/* Kinds that hold others, and what carries nothing. */
#define AST_FIELD_SPARE UINT32_C(9)       /* bits that mean nothing, 0 as a rule */
#define AST_FIELD_GROUP UINT32_C(10)      /* fields one behind the other */
#define AST_FIELD_EXTENDED UINT32_C(11)   /* parts chained by FX, one group to the reader */
#define AST_FIELD_COMPOUND UINT32_C(12)   /* subfields that presence bits announce */
#define AST_FIELD_REPETITIVE UINT32_C(13) /* a count and as many elements */
#define AST_FIELD_CHAINED UINT32_C(14)    /* elements chained by FX */
#define AST_FIELD_EITHER UINT32_C(15)     /* several readings of the same bits, one for each value of another field */
#define AST_FIELD_RANDOM UINT32_C(16)     /* Random Field Sequencing: a count, and FRNs with their items */

/** One field as the document describes it. Texts are constant, "" where there is none; the path and the record itself
 *  belong to the call that hands them over. */
typedef struct {
    const char *path;  /* "I048/020/TYP"; an element of a list is "[]", and an item that is one value only "I048/140" */
    const char *title; /* in the document's words */
    uint32_t kind;     /* AST_FIELD_... */
    uint32_t bits;     /* 0 where it varies */
    const char *unit;  /* of a quantity: "NM", "FL", "°" (UTF-8) */
    uint64_t numerator;   /* of the step, one raw unit in its unit: 360 of 360/65536, in lowest terms; 0: no quantity */
    uint64_t denominator; /* of the step; 1 for whole units */
    int32_t offset;       /* added to raw × step, in its unit: 800 of the barometric setting, else 0 */
    const char *texts;    /* of the codes 0, 1, 2 ... between bars; "97:" in front of a text sets its code */
} ast_field_t;

/** Takes the fields of an item type one after the other. context is what the caller handed in. */
typedef void (*ast_field_visitor_t)(void *context, const ast_field_t *field);

/** Hands over every field of an item type in the order of the document, what holds others before what it holds, spare
 *  bits included. The profile tells the edition where there are several. False for a type that no edition describes, or
 *  a null visitor; then nothing is handed over. */
AST_API bool ast_dataitem_describe(ast_dataitem_type_t type, ast_uap_t uap, ast_field_visitor_t visit, void *context);

/** The same for a Mode S register by its number, 64 for BDS 4,0; paths begin with "BDS40". False for one whose fields
 *  are not known. */
AST_API bool ast_bds_describe(uint32_t bds, ast_field_visitor_t visit, void *context);

/** Writes the text of a code of a described field; empty where it has none. */
AST_API void ast_field_get_text(char *text, uint64_t capacity, const ast_field_t *field, uint64_t code);

/** One value of an item. What it points to belongs to the call that hands it over. */
typedef struct {
    const ast_field_t *field; /* with the place of an element in the path, from 0: "I048/250[1]/MCP_ALT" */
    uint64_t raw;             /* the bits as sent; 0 for octets of more than 64 bits */
    bool has_number;          /* for numbers and quantities */
    double number;            /* in the unit; exact as far as a double is */
    const char *text; /* of a code, or the characters; octal and hexadecimal digits of codes and octets; or "" */
} ast_field_value_t;

/** Takes the values of an item one after the other. context is what the caller handed in. */
typedef void (*ast_field_value_visitor_t)(void *context, const ast_field_value_t *value);

/** Hands over the values of a decoded item in the order of its octets. A Mode S register begins with a value of its
 * own, "I048/250[1]/bds" of the kind AST_FIELD_REGISTER: its bits as sent, and its number as text, "40" for BDS 4,0.
 * Its fields follow, or, where they are not known, all of its octets as ".../octets". message_type is that of the
 * record (item 000), which some fields of category 004 depend on; 0 otherwise. The text of octets is cut at 255
 * characters. False for an item that is not valid, that no edition describes, or whose octets end too early, behind
 * what could be read. */
AST_API bool ast_dataitem_walk(const ast_dataitem_t *item, ast_uap_t uap, uint32_t message_type,
                               ast_field_value_visitor_t visit, void *context);

/** Where a field stands, found once for many items. */
typedef struct {
    const void *field; /* the library's own, for as long as it is loaded */
    uint32_t bit;      /* where it begins in each item of its type, from 0; AST_FIELD_VARIES where items tell */
    uint32_t needed;   /* the bits that an item must have then */
} ast_field_place_t;

#define AST_FIELD_VARIES UINT32_MAX

/** Finds a field of an item type by its path, as ast_dataitem_describe has it: "I048/250[]/MCP_ALT" with the name of a
 *  register's field behind the register. Returns the number of fields with that path that carry a value, of which the
 *  first ones up to room are written to places: readings of the same bits share one, and so may several registers. 0
 *  where there is none. */
AST_API uint32_t ast_dataitem_find_field(ast_dataitem_type_t type, ast_uap_t uap, const char *path,
                                         ast_field_place_t *places, uint32_t room);

/** Hands over the values that ast_dataitem_walk would for one path, far faster where the place does not vary: of fields
 *  with an empty path, in the order of the octets, codes without their texts (ast_field_get_text has them). The places
 *  are those that were found for the type of the item and a profile of the same edition. False as there, and for null
 *  places. */
AST_API bool ast_dataitem_read_field(const ast_dataitem_t *item, ast_uap_t uap, uint32_t message_type,
                                     const ast_field_place_t *places, uint32_t count, ast_field_value_visitor_t visit,
                                     void *context);

/** The bits of a field whose place does not vary, as they are sent. False, and raw unchanged, where it varies, for more
 *  than 64 bits, for an item that is not valid or ends before the field does, for a field in which 0 says that there is
 *  nothing, and for null pointers. */
AST_API bool ast_dataitem_get_bits(const ast_dataitem_t *item, const ast_field_place_t *place, uint64_t *raw);

/* --------------------------------------------------------------------------------------------------------- changes --
 */

/** Is shown a value, as ast_dataitem_walk has it, and says what its bits are to be. raw holds those that are sent, and
 *  takes others. Returns whether they are to be written. */
typedef bool (*ast_field_changer_t)(void *context, const ast_field_value_t *value, uint64_t *raw);

/** Writes values of an item where they stand: what ast_dataitem_walk hands over is shown to change, but for octets of
 *  more than 64 bits and a Mode S register as a whole, whose fields are shown. What an item holds does not change, only
 *  what it says: neither its size nor which of its parts are there.
 *  octets  the item's own or a copy of them, item->size octets; nothing in them changes but the bits of these values
 *  item    a decoded item, read only: values are shown as it has them, unless octets are its own
 *  context is handed on to change
 *  Returns how many values have been written; one that does not fit the bits of its field is not. 0 for an item that is
 *  not valid or that no edition describes, and for null pointers. Behind octets that end too early nothing is shown. */
AST_API uint64_t ast_dataitem_change_values(uint8_t *octets, const ast_dataitem_t *item, ast_uap_t uap,
                                            uint32_t message_type, ast_field_changer_t change, void *context);

/* ----------------------------------------------------------------------------------------------------------- times --
 */

/** Moves all times of a record by so many seconds, in every published item that has any: times of day over midnight,
 *  also I001/141 and others of which only the lower bits are sent, times with hours and minutes, and dates. Ages,
 *  durations and fractions of a second stay.
 *  octets      the record's own or a copy of them, record->size octets; nothing else in them changes
 *  record      a valid record, read only
 *  recorded_s  when the record was made, since 1970-01-01 UTC: the lower bits and hours are read by it, which four
 *              minutes more or less do not matter to. The date of a day counts only as part of the sum with seconds
 *  seconds     may be negative
 *  Returns how many times have been moved; 0 unless the record is valid. */
AST_API uint64_t ast_datarecord_move_times(uint8_t *octets, const ast_datarecord_t *record, int64_t recorded_s,
                                           int64_t seconds);

/* ------------------------------------------------------------------------------------------------------------ JSON --
 */

/** What a line of JSON says of its record beside the items. All zero says nothing but category and profile. */
typedef struct {
    const char *file;        /* null: left out */
    uint64_t block;          /* its number, from 1; 0: left out */
    uint64_t record;         /* its number in the block, from 1; 0: left out */
    const char *time;        /* of reception; null: left out */
    const char *source;      /* address and port; null: left out */
    const char *destination; /* null: left out */
    bool has_offset;         /* offset is known; left out when false */
    uint64_t offset;         /* of the block in its file, in octets */
    const char *profile;     /* null: the name of the record's profile, none for one of the caller's own */
    bool ambiguous;          /* other editions fit as well; left out when false */
    bool texts;              /* codes as {"value":5,"text":"..."} where they have a text */
} ast_json_line_t;

/** Writes a record as one JSON object, without a line feed: the keys of the line, then its items.
 *  line      null for one that says nothing
 *  Returns the characters needed, the terminator not counted: what is written is whole when that is less than capacity,
 *  and cut otherwise. Faster where the capacity is ample, which is 1 KB, 256 characters per octet of the record and
 *  six per character of the line's texts. An item that is not valid is left out. */
AST_API uint64_t ast_datarecord_to_json(char *text, uint64_t capacity, const ast_datarecord_t *record,
                                        const ast_json_line_t *line);

/** Writes octets that are no record, such as the rest of a block that breaks, as an object with "error" and "data".
 *  Returns the characters needed, as above. */
AST_API uint64_t ast_octets_to_json(char *text, uint64_t capacity, uint32_t category, const uint8_t *data,
                                    uint64_t count, const char *error, const ast_json_line_t *line);

/** Room for the path of an error. */
#define AST_JSON_PATH_CAPACITY 80

/** What a JSON object came to. */
typedef struct {
    bool valid;        /* the octets are written whole */
    uint64_t size;     /* octets needed; more than the length of the buffer when it is too short */
    uint32_t category; /* as the object says */
    ast_uap_t uap;     /* the profile that it names; AST_UAP_PUBLISHED or AST_UAP_PUBLISHED_OTHER for none */
    uint64_t block;    /* its "block", 0 for none: lines of one block and category are one block again */
    bool is_data;      /* the octets are those of "data", no record */
    const char *error; /* what is wrong, constant; null when valid */
    uint64_t position; /* where, in characters from the first */
    char path[AST_JSON_PATH_CAPACITY]; /* of the member that is wrong, "I040/RHO"; empty where the JSON itself is */
} ast_json_result_t;

/** Encodes the record that a JSON object describes: FSPEC and items, ready for a block. Members in any order; those of
 *  the line are not needed but for "category". Quantities are rounded to the nearest step. A member that the profile or
 *  the item does not have, or a value that does not fit, is an error; so is any JSON that is malformed or nested deeper
 *  than 32 levels. null is as good as a member that is missing.
 *  json   chars characters, no terminator needed
 *  Nothing is written behind length; what is in the buffer has no meaning behind the record, nor unless the result is
 *  valid. */
AST_API ast_json_result_t ast_datarecord_from_json(uint8_t *buffer, uint64_t length, const char *json, uint64_t chars);

AST_END_DECLARATIONS

#endif
