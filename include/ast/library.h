/* Identity, options and the log. */
#ifndef AST_LIBRARY_H
#define AST_LIBRARY_H

#include "base.h"

AST_BEGIN_DECLARATIONS

/** The three numbers of the version, 1.23.0. */
AST_API uint32_t ast_library_version_major(void);
AST_API uint32_t ast_library_version_minor(void);
AST_API uint32_t ast_library_version_patch(void);

/** The version as text, "major.minor.patch", in a buffer of the calling thread. */
AST_API const char *ast_library_version(void);

/** The revision as lower-case hexadecimal text, in a buffer of the calling thread. */
AST_API const char *ast_library_revision(void);

/** The date of this release, "Mmm dd yyyy". Constant, as are the next two. */
AST_API const char *ast_library_build(void);

/** One line on what the library is. */
AST_API const char *ast_library_about(void);

/** A web address. */
AST_API const char *ast_library_contact(void);

/** Clears all option flags and returns true. Leaves the log sink, lookups and flavour alone. Calling it is optional;
 *  there is nothing to release at the end. */
AST_API bool ast_library_init(void);

/* Option bits. Other bits may be set and mean nothing. */

/** A negative longitude of I062/105 is negated before it is scaled, so that it reads as a positive one. */
#define AST_OPTION_INVERT_062_LONGITUDE UINT32_C(1)

/** An FSPEC, or a primary subfield, in which no bit is set is valid: a record or item without content. */
#define AST_OPTION_ALLOW_EMPTY_FSPEC UINT32_C(2)

/** Sets the given option bits and keeps the others. */
AST_API void ast_library_set_option(uint32_t bits);

/** Clears the given option bits and keeps the others. */
AST_API void ast_library_unset_option(uint32_t bits);

/** Clears all option bits. */
AST_API void ast_library_reset_option(void);

/** Whether any of the given bits is set; with bits 0, whether no option is set at all. */
AST_API bool ast_library_test_option(uint32_t bits);

/* Log levels. Any other level is accepted and shown as unknown. */
#define AST_LOG_DEBUG UINT32_C(0)
#define AST_LOG_INFO UINT32_C(1)
#define AST_LOG_WARNING UINT32_C(2)
#define AST_LOG_CRITICAL UINT32_C(3)
#define AST_LOG_PANIC UINT32_C(4)

/** A log sink. Takes one line without a line end; the text is good only during the call. The library ignores what it
 *  returns. It is called on whatever thread reports, so a sink shared by threads does its own locking. */
typedef int32_t ast_log_handler_t(uint32_t level, const char *message);

/** Replaces the log sink, `ast_log_stdout` at start. Null turns all logging off, at the cost of one test per report. */
AST_API void ast_log_handler_reg(ast_log_handler_t *handler);

/** Turns the log off for the calling thread alone, or on again; it is on at first. For those who try what may fail.
 *  Returns whether it was off. */
AST_API bool ast_log_silence(bool silent);

/** Formats one line, at most 511 characters of it, and hands it to the sink. */
AST_API void ast_log(uint32_t level, const char *format, ...) AST_PRINTF(2, 3);

/** The sink at start: prints a level label of ten characters, a blank, the message and a line end to standard output.
 *  Returns what the last print returned. */
AST_API int32_t ast_log_stdout(uint32_t level, const char *message);

/** Logs "Binary data size: N" and then the octets in hexadecimal: 17 on the first line, 16 on each later one. */
AST_API void ast_log_binary_data(uint32_t level, const uint8_t *data, uint64_t count);

AST_END_DECLARATIONS

#endif
