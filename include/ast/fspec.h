/* The bits that announce the items of a record, by themselves. */
#ifndef AST_FSPEC_H
#define AST_FSPEC_H

#include "records.h"

AST_BEGIN_DECLARATIONS

/** Decodes the FSPEC at data. Not valid, with length 0, when its FX chain runs past what is available; not valid, with
 *  length and counts filled, when no bit is set and AST_OPTION_ALLOW_EMPTY_FSPEC is not. */
AST_API ast_fspec_t ast_fspec_decode(const uint8_t *data, uint64_t available);

/** Whether a valid FSPEC announces an FRN, counted from 1. */
AST_API bool ast_fspec_is_set(const ast_fspec_t *fspec, uint32_t frn);

/** Sets or clears the bit of an FRN in FSPEC octets, and returns whether the octets hold it. FX bits are left alone. */
AST_API bool ast_fspec_set(uint8_t *octets, uint64_t available, uint32_t frn, bool on);

/** Copies a valid FSPEC into buffer. When it is not valid or does not fit, the result is not valid and has length 0,
 * but carries the counts of the source. */
AST_API ast_fspec_t ast_fspec_copy(uint8_t *buffer, uint64_t length, const ast_fspec_t *source);

AST_END_DECLARATIONS

#endif
