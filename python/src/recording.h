/* An open recording, for those who read it: record by record, and as columns. */
#ifndef LIBAST_RECORDING_H
#define LIBAST_RECORDING_H

#include "binding.h"

/* A report as it was told, where there is no lock; its texts are its own. */
typedef struct Told {
    struct Told *next;
    ast_recording_report_t report;
    char texts[]; /* the file, the detail and the path, one behind the other */
} Told;

typedef enum { kIgnore, kWarn, kRaise } Manners;

typedef struct {
    PyObject base;
    ast_recording_t *recording; /* null once it is closed */
    ast_filter_t *filter;       /* null for all records */
    Sites *sites;               /* null for none */
    PyObject *source;           /* octets that are read from memory, or null */
    PyObject *reports;          /* a list */
    PyObject *causes;           /* a set: what has been warned of */
    PyObject *file;             /* the name of the input at hand */
    char *categories;           /* that were asked for, or null */
    Block *block;               /* the one at hand, once a record of it has been handed out */
    Told *told, **end_of_told;
    ast_recording_block_t at;
    ast_datarecord_t record; /* found, the one before `next` */
    uint64_t next;           /* record of the block */
    int64_t timeout_ms;      /* negative for none */
    Manners manners;
    bool names_files;
    bool is_found;     /* the record has yet to be handed out */
    bool is_new_block; /* `at` is not what `block` has been made of */
    bool is_in_use;
    bool is_streamed; /* as columns */
} Recording;

/* Keeps a report, as the library tells it: with the recording as context, and without the lock. */
void tell(void *context, const ast_recording_report_t *report);
void drop_reports(Recording *recording);

/* Makes objects and warnings of what has been told. False with an exception, which is one of these where that is
 * wanted. */
bool hand_over_reports(Recording *recording);

/* What is left of it as a stream of columns. */
PyObject *open_columns(Recording *recording, const char *columns, const char *names, uint64_t rows);

#endif
