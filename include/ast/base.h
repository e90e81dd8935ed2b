/* What every part of the header needs. */
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
