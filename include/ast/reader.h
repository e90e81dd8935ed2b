/* Reading blocks whose edition nobody tells, of every published category.
 *
 * A reader keeps in mind, for each category and data source, which profiles fit all that it has seen of it, and reads
 * with the likeliest of them. It is the caller's and holds all that is remembered: nothing is shared by the process, so
 * that the same blocks in the same order read the same, and each thread may have a reader of its own.
 *
 *     static ast_reader_t reader; // all zero, as ast_reader_init leaves it
 *     static ast_datablock_t block;
 *     ast_reader_result_t result;
 *     if (ast_reader_decode(&reader, &block, octets, length, &result)) puts(result.edition);
 *
 * Smart decoding and splitting (blocks.h) know the items that have a registered size, refuse a compound item without a
 * subfield, and take a subfield that they do not know as empty. A reader knows
 *
 * - every category and item of AST_UAP_PUBLISHED and AST_UAP_PUBLISHED_OTHER (schema.h);
 * - items that are not registered or are registered with another layout, longer chains of octets, new subfields and
 *   empty primary subfields, all by their published size; what neither knows breaks the block;
 * - records of category 001 without I001/020, as the record before them in the block, or else as plots. */
#ifndef AST_READER_H
#define AST_READER_H

#include "blocks.h"

AST_BEGIN_DECLARATIONS

/** Data sources that a reader keeps in mind. Of more of them, those are read as the best known one of their category
 *  that send what it does; for one that does not, the one that was not seen for the longest time makes room. */
#define AST_READER_SOURCES 64

/** The most profiles that are tried for one category. */
#define AST_READER_CANDIDATES 8

/** What a reader knows of one data source in one category. The reader's own. */
typedef struct {
    uint32_t key;                           /* category and data source; 0 where there is none */
    uint32_t judged;                        /* records looked at for plausibility, per profile */
    uint32_t leading;                       /* profiles that nothing puts behind another one, a bit each; in the higher
                                               octets, places of other sources */
    uint64_t last_seen;                     /* by the reader's clock */
    uint64_t blocks;                        /* that a profile fitted */
    uint32_t misses[AST_READER_CANDIDATES]; /* blocks that this profile did not fit while another one did */
    uint32_t flaws[AST_READER_CANDIDATES];  /* implausible values and missing items with this profile */
} ast_reader_source_t;

/** A reader, about 6 KB. All zero is a new one. */
typedef struct {
    /* The caller's. */
    const ast_uap_t *forced; /* an exported profile, set before the first block: the categories that it is a candidate
                                of are read with it, category 001 by AST_UAP_STANDARD as the mix of plots and tracks
                                that it is. null: all profiles are chosen */
    bool frozen; /* decoding and splitting learn nothing, only ast_reader_learn does: a block reads the same whatever
                    is read before it. Of a source that is not known, what is known of the one of its category with the
                    most blocks counts. */

    /* The reader's own. */
    uint64_t clock;  /* blocks seen */
    uint64_t latest; /* place of the source seen last */
    ast_reader_source_t sources[AST_READER_SOURCES];
} ast_reader_t;

/** How a block was read. */
typedef struct {
    bool valid;           /* the records fill LEN exactly; reason is AST_SPLIT_WHOLE */
    const ast_uap_t *uap; /* the profile, an exported one; records of category 001 have their own */
    const char *profile;  /* its name, "standard" or "cat021-2.4" or "published"; constant */
    const char *edition;  /* the published edition that it means, "2.4"; empty for a category that is not published */
    bool ambiguous;       /* other editions fit all blocks of this source and are as plausible; the newest is taken */
    uint32_t category;    /* 0 without a header */
    uint64_t length;      /* LEN; 0 without a header */
    uint32_t reason;      /* why reading ended, one of AST_SPLIT_... */
    uint64_t end;         /* where: offset of the item, FSPEC or record at fault, from the CAT octet; LEN when valid */
    uint32_t broken_frn;  /* the FRN of the item at fault, 0 for none */
    ast_dataitem_type_t broken_type; /* what that FRN announces */
} ast_reader_result_t;

/** Forgets all data sources, and sets the caller's members to zero. */
AST_API void ast_reader_init(ast_reader_t *reader);

/** Decodes the block at data, and keeps in mind what it tells of its source.
 *  reader     null reads the block for itself
 *  block      as for ast_datablock_decode_into. Of a block that breaks, the records before the fault, read with the
 *             profile of its source, or with the one that gets furthest for a source that no block has fitted yet.
 *  data       the CAT octet; borrowed by the block
 *  available  octets that may be read
 *  result     null when nobody asks
 *  Returns whether the block is valid. A profile is preferred that fits all blocks of the source; among those a
 *  published edition to the layout of a particular radar, then the one with which the first records are most plausible
 *  (I021/010, I021/040 and I021/080 or I021/161 present, time of day below 24 hours, latitude within 90°, levels from
 *  -15 to 1500, characters legal, I007/410 of that direction), then the newest. Attempts that fail may log. */
AST_API bool ast_reader_decode(ast_reader_t *reader, ast_datablock_t *block, const uint8_t *data, uint64_t available,
                               ast_reader_result_t *result);

/** The same for a split block, without a limit on records and items but its room. `remembered` is left alone. */
AST_API bool ast_reader_split(ast_reader_t *reader, ast_split_t *split, const uint8_t *data, uint64_t available,
                              ast_reader_result_t *result);

/** The same without a block: for looking through the beginning of a recording before it is decoded, so that the profile
 *  of a source does not change midway when the reader is frozen then. */
AST_API bool ast_reader_learn(ast_reader_t *reader, const uint8_t *data, uint64_t available,
                              ast_reader_result_t *result);

AST_END_DECLARATIONS

#endif
