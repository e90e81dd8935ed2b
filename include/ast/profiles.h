/* User Application Profiles: which item each FRN announces.
 *
 * The standard profile covers every category; each variant overrides one or two and asks AST_UAP_STANDARD for the rest,
 * through that object, which in turn asks AST_UAP_CAT021_VER026 for category 021. So an application that changes one of
 * those two objects, before it decodes, changes every fallback; neither may be pointed at a variant that falls back on
 * it. */
#ifndef AST_PROFILES_H
#define AST_PROFILES_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/* The profiles. */
AST_API extern ast_uap_t AST_UAP_STANDARD;      /* all categories; category 021 as edition 0.26 */
AST_API extern ast_uap_t AST_UAP_CAT001_PLOT;   /* category 001: plots */
AST_API extern ast_uap_t AST_UAP_CAT021_VER023; /* category 021: edition 0.23 */
AST_API extern ast_uap_t AST_UAP_CAT021_VER026; /* category 021: edition 0.26 */
AST_API extern ast_uap_t AST_UAP_CAT021_VER21;  /* category 021: edition 2.1 */
AST_API extern ast_uap_t AST_UAP_CAT021_VER24;  /* category 021: edition 2.4 */
AST_API extern ast_uap_t AST_UAP_ASR10SS;       /* categories 001 and 002: ASR10SS radar */
AST_API extern ast_uap_t AST_UAP_ASR10SS_MK2;   /* categories 001 and 002: ASR10SS MK2 radar */
AST_API extern ast_uap_t AST_UAP_THALES;        /* category 021: THALES layout */
AST_API extern ast_uap_t AST_UAP_MANAGAIR;      /* categories 001 and 002: MANAGAIR layout */

/** The highest FRN that a profile defines for a category, which is how far the encoder looks; 0 for none. */
AST_API uint32_t ast_uap_max_frn(const ast_uap_t *uap, uint32_t category);

/** The item that an FRN announces under a profile, or 0. Undefined FRNs and categories may be reported at level 3. */
AST_API ast_dataitem_type_t ast_uap_get_dataitem(const ast_uap_t *uap, uint32_t category, uint32_t frn);

/* The list of the profiles, an extension. */

/** How many categories a variant profile lays out anew, at most. */
#define AST_UAP_MAX_OVERRIDES 4

/** One of the profiles above. */
typedef struct {
    bool valid;
    const char *name;        /* a short one, as a command line takes it: "standard", "cat021-2.1"; constant */
    const ast_uap_t *uap;    /* its object */
    uint64_t override_count; /* how many overrides are meaningful */
    uint32_t overrides[AST_UAP_MAX_OVERRIDES]; /* the categories that it lays out anew; none for the standard profile */
} ast_uap_info_t;

/** How many profiles there are. */
AST_API uint64_t ast_uap_get_number(void);

/** The profile at an index from 0, in the order in which smart decoding tries them; all zero beyond the last. */
AST_API ast_uap_info_t ast_uap_get_info(uint64_t index);

/* The two functions of each profile. */
AST_API uint32_t ast_uap_max_frn_standard(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat001_plot(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver023(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver026(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver21(uint32_t category);
AST_API uint32_t ast_uap_max_frn_cat021_ver24(uint32_t category);
AST_API uint32_t ast_uap_max_frn_asr10ss(uint32_t category);
AST_API uint32_t ast_uap_max_frn_asr10ss_mk2(uint32_t category);
AST_API uint32_t ast_uap_max_frn_thales(uint32_t category);
AST_API uint32_t ast_uap_max_frn_managair(uint32_t category);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_standard(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat001_plot(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver023(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver026(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver21(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_cat021_ver24(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_asr10ss(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_asr10ss_mk2(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_thales(uint32_t category, uint32_t frn);
AST_API ast_dataitem_type_t ast_uap_get_dataitem_managair(uint32_t category, uint32_t frn);

AST_END_DECLARATIONS

#endif
