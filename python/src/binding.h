/* What the sources of the extension share. All of them hold the lock of the interpreter, but where they let go of it.
 */
#ifndef LIBAST_BINDING_H
#define LIBAST_BINDING_H

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <ast_recording.h>
#include <stdbool.h>

/* A function as the tables of types and methods take it. */
#define SLOT(function) (__extension__(void *)(function))
#define WITH_KEYWORDS(function) ((PyCFunction)(void (*)(void))(function))

/* ---- Errors (errors.c) ---- */

typedef struct {
    const char *file; /* null for none */
    uint64_t offset;  /* AST_OFFSET_NONE for none */
    uint32_t category;
    const char *reason; /* a name such as "past_end" */
} ErrorPlace;

/* Raises libast.Error. Returns null. */
void *raise_error(const char *text, const ErrorPlace *place);
void *raise_open_error(const ast_recording_error_t *error, const char *file);
void *raise_filter_error(const ast_filter_error_t *error, const char *expression);

/* A report as an object; the same as an error. */
PyObject *make_report(const ast_recording_report_t *report);
void *raise_report(const ast_recording_report_t *report);

/* Whether something is lost by it. */
bool is_loss(const ast_recording_report_t *report);

/* Issues a DamageWarning. False when it has become an exception. */
bool warn_of(const ast_recording_report_t *report);

bool add_errors(PyObject *module);

/* ---- Values (values.c) ---- */

/* The object that a line of the library's own JSON stands for. */
PyObject *read_json(const char *text);

/* Room for a text, to be given back. Null, with an exception, where there is no memory. */
char *borrow_text(size_t capacity);
void give_text_back(char *text);

/* Nanoseconds since 1970 as a datetime in UTC; None for AST_TIME_UNKNOWN. */
PyObject *make_datetime(int64_t time_ns);

PyObject *make_endpoint(const ast_endpoint_t *endpoint);

/* ---- Sites (sites.c) ---- */

typedef struct {
    PyObject base;
    ast_sites_t table;
} Sites;

extern PyTypeObject *sites_type;
bool add_sites(PyObject *module);

/* ---- Records (record.c) ---- */

/* Octets of a block that records share, and where it came from. */
typedef struct {
    PyVarObject base;
    PyObject *file;             /* a str, or null */
    Sites *sites;               /* null for none */
    ast_recording_block_t from; /* its octets are those below, its file is the one above */
    bool names_file;            /* in lines of JSON */
    uint8_t octets[];
} Block;

typedef struct {
    ast_dataitem_type_t type;
    uint16_t offset; /* in the record */
    uint16_t size;
    uint8_t following;
} RecordItem;

/* A record takes what it needs, for a decoded one of the library has room for 32 items. */
typedef struct {
    PyVarObject base;
    Block *block;
    ast_answers_t *answers; /* null until somebody asks */
    ast_uap_t uap;
    uint32_t offset; /* in the block */
    uint32_t size;
    uint32_t number; /* in the block, from 1 */
    uint16_t fspec_octets;
    uint16_t fspec_items;
    RecordItem items[];
} Record;

extern PyTypeObject *record_type;

/* A block with a copy of these octets. */
Block *make_block(const ast_recording_block_t *from, PyObject *file, Sites *sites, bool names_file);

/* A record of the octets that the block has been made of, which are those of the recording. */
PyObject *make_record(Block *block, const ast_datarecord_t *from, const uint8_t *octets, uint64_t index);

/* As the library has it; good as long as the record is. */
void restore_record(const Record *record, ast_datarecord_t *restored);

bool is_record(PyObject *object);
PyObject *record_to_dict(Record *record);
bool add_record(PyObject *module);

/* ---- Encoding (encode.c) ---- */

extern PyMethodDef encode_methods[];
PyObject *replace_in_record(Record *record, PyObject *changes);

/* ---- Signals (signals.c) ---- */

/* From here to the end, Ctrl-C interrupts the recording, before the interpreter gets to know. One at a time: returns
 * whether it is this one. With the lock. */
bool begin_wait(ast_recording_t *recording);
void end_wait(bool has_begun);

/* ---- The rest ---- */

extern PyMethodDef field_methods[];
bool add_field(PyObject *module);
bool add_recording(PyObject *module);
bool add_columns(PyObject *module);
bool add_sender(PyObject *module);
bool add_writer(PyObject *module);

/* For types that only the extension makes, and the end of any instance. */
PyObject *refuse_new(PyTypeObject *type, PyObject *arguments, PyObject *keywords);
void free_instance(PyObject *self);

/* A named tuple of these values, which it takes over, null ones of them as the exceptions that they are. */
PyObject *fill_sequence(PyTypeObject *type, PyObject *const *values, size_t count);

/* Adds an object to the module, which takes a reference of its own. */
bool add_object(PyObject *module, const char *name, PyObject *object);

/* Adds a type made of its description to the module, and keeps a reference. */
PyTypeObject *add_type(PyObject *module, const char *name, PyType_Spec *spec);

#endif
