/* What every part of the header needs.
 *
 * Members of these names mean the same in all structs, and have comments only where there is more to say:
 *
 *     valid      what the struct says may be used. Where it is false, the rest is 0, or what could be read before the
 *                fault, or a default that its comment names
 *     present    the field or subfield is sent; its value is 0 where this is false
 *     subfields  which subfields a compound item has, and their octets (compounds.h)
 *     reserved   for later versions; to be 0 in what the caller hands in
 *     x_raw      the field as it is sent, in steps of its LSB; beside it, x_nm and the like, the same in that unit */
#ifndef AST_BASE_H
#define AST_BASE_H

#include <stdbool.h>
#include <stdint.h>

#if defined(_WIN32) && defined(AST_BUILDING)
#define AST_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(AST_STATIC)
#define AST_API __declspec(dllimport)
#elif defined(__GNUC__)
#define AST_API __attribute__((visibility("default")))
#else
#define AST_API
#endif

#if defined(__MINGW32__)
#define AST_PRINTF(format_index, first_argument) __attribute__((format(gnu_printf, format_index, first_argument)))
#elif defined(__GNUC__)
#define AST_PRINTF(format_index, first_argument) __attribute__((format(printf, format_index, first_argument)))
#else
#define AST_PRINTF(format_index, first_argument)
#endif

#ifdef __cplusplus
#define AST_BEGIN_DECLARATIONS extern "C" {
#define AST_END_DECLARATIONS }
#else
#define AST_BEGIN_DECLARATIONS
#define AST_END_DECLARATIONS
#endif

#endif
