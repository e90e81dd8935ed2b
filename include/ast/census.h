/* Counting what blocks are made of, without taking their records apart.
 *
 *     static ast_census_t census; // all zero is an empty one
 *     while (octets < end) {
 *         octets += ast_reader_count(&reader, &census, octets, end - octets);
 *         ... // what stands here, if anything, is no block that can be counted: ast_reader_split says more of it
 *     }
 *     for (uint64_t i = 0; i < census.group_count; ++i) printf("%u: %llu\n", census.groups[i].category, ...);
 *
 * Records of the same category and profile whose FSPECs announce the same items have the same shape. A census keeps in
 * mind the shapes that it has met, so that only items whose sizes vary are looked at. */
#ifndef AST_CENSUS_H
#define AST_CENSUS_H

#include "reader.h"

AST_BEGIN_DECLARATIONS

/** The most groups of a census. */
#define AST_CENSUS_GROUPS 64

/** Places for shapes, up to three quarters of which are taken, and for items of them whose sizes vary. */
#define AST_CENSUS_SHAPES 1024
#define AST_CENSUS_STEPS 4096

/** Blocks of one category that were read in the same way. */
typedef struct {
    uint32_t category;    /* of the blocks */
    bool ambiguous;       /* as in ast_reader_result_t, as the next three are */
    const ast_uap_t *uap; /* the profile */
    const char *profile;
    const char *edition;
    uint64_t blocks;  /* that fit their profile and are counted */
    uint64_t records; /* of these blocks */
    uint64_t items;   /* of these records */
    uint64_t octets;  /* of these blocks, headers included */
} ast_census_group_t;

/** Records whose FSPECs announce the same items of the same layout. The census's own. */
typedef struct {
    const void *layout;    /* null for a place that is empty */
    uint64_t fspec;        /* its octets, the first one lowest */
    uint64_t records;      /* that have this shape */
    uint16_t item_count;   /* of each of these records */
    uint16_t first_step;   /* place among the steps of the census */
    uint16_t step_count;   /* items whose sizes vary */
    uint16_t fixed_octets; /* behind the last step */
} ast_census_shape_t;

/** An item of a shape whose size varies. The census's own. */
typedef struct {
    const void *sums;      /* of a compound item, what tells its size by its primary subfield; null for others */
    uint16_t fixed_octets; /* of the items in front of it */
    uint16_t octets;       /* what the size rule goes by: a number of octets, or how many sums there are */
    uint8_t kind;          /* of the size rule */
    uint8_t bit;           /* that announces it */
} ast_census_step_t;

/** A census, about 100 KB, the caller's. All zero is an empty one. */
typedef struct {
    uint64_t group_count;                         /* of the groups that are meaningful */
    ast_census_group_t groups[AST_CENSUS_GROUPS]; /* as they were met */

    /* The census's own. */
    uint64_t shape_count;
    uint64_t step_count;
    ast_census_shape_t shapes[AST_CENSUS_SHAPES];
    ast_census_step_t steps[AST_CENSUS_STEPS];
} ast_census_t;

/** Forgets all that was counted. */
AST_API void ast_census_clear(ast_census_t *census);

/** Counts blocks that follow one another, up to the first one that cannot be counted.
 *  reader     frozen, or nothing is counted. Blocks are read as ast_reader_split reads them
 *  census     what is counted is added to it
 *  data       the CAT octet of the first block
 *  available  octets of all blocks
 *  Returns the octets of the blocks that were counted. The next block is not whole or not valid; or it is of a source
 *  whose profile is not settled, has a record of more than AST_DATARECORD_MAX_ITEMS items or with an FSPEC of more than
 *  eight octets, or is of a group or a shape that the census has no room for. Nothing of it is counted. Reports of it
 *  are those of splitting it. */
AST_API uint64_t ast_reader_count(const ast_reader_t *reader, ast_census_t *census, const uint8_t *data,
                                  uint64_t available);

/** Takes a number of records that have an item of that type. */
typedef void (*ast_census_visitor_t)(void *context, ast_dataitem_type_t type, uint64_t records);

/** Calls visit for the items of all records that were counted, in no order and more than once for a type whose numbers
 *  are to be added. */
AST_API void ast_census_get_items(const ast_census_t *census, ast_census_visitor_t visit, void *context);

AST_END_DECLARATIONS

#endif
