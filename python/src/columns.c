/* Columns: what is left of a recording, batch by batch, by Arrow's C interfaces, and as octets for those without Arrow.
 */
#include "recording.h"

#include <errno.h>
#include <string.h>

/* ---- The stream of the library, with the recording that it reads ---- */

enum { kErrorChars = 1000 };

typedef struct {
    struct ArrowArrayStream inner;
    Recording *recording;
    char error[kErrorChars]; /* of this side; empty where the inner one has one */
} Reading;

static Reading *reading_of(struct ArrowArrayStream *stream) { return stream->private_data; }

/* Takes the exception, for whoever asks by Arrow's interface. */
static void keep_exception(Reading *reading) {
    PyObject *type, *value, *trace;
    PyErr_Fetch(&type, &value, &trace);
    PyObject *const text = value ? PyObject_Str(value) : NULL;
    PyObject *const octets = text ? PyUnicode_AsEncodedString(text, "utf-8", "replace") : NULL;
    PyOS_snprintf(reading->error, sizeof reading->error, "%s", octets ? PyBytes_AsString(octets) : "no memory");
    Py_XDECREF(octets);
    Py_XDECREF(text);
    Py_XDECREF(type);
    Py_XDECREF(value);
    Py_XDECREF(trace);
    PyErr_Clear();
}

/* With the lock, which is let go while the batch is made. */
static int read_batch(Reading *reading, struct ArrowArray *batch) {
    reading->recording->is_in_use = true;
    const bool has_begun = begin_wait(reading->recording->recording);
    PyThreadState *const lock = PyEval_SaveThread();
    const int status = reading->inner.get_next(&reading->inner, batch);
    PyEval_RestoreThread(lock);
    end_wait(has_begun);
    reading->recording->is_in_use = false;
    return status;
}

static int get_schema(struct ArrowArrayStream *stream, struct ArrowSchema *schema) {
    Reading *const reading = reading_of(stream);
    reading->error[0] = '\0';
    return reading->inner.get_schema(&reading->inner, schema);
}

static int get_next(struct ArrowArrayStream *stream, struct ArrowArray *batch) {
    Reading *const reading = reading_of(stream);
    const PyGILState_STATE lock = PyGILState_Ensure();
    reading->error[0] = '\0';
    int status = EBUSY;
    if (reading->recording->is_in_use)
        PyOS_snprintf(reading->error, sizeof reading->error, "another thread is reading this recording");
    else
        status = read_batch(reading, batch);
    if (status != EBUSY && !hand_over_reports(reading->recording)) {
        keep_exception(reading);
        if (status == 0 && batch->release) batch->release(batch);
        status = EIO;
    }
    PyGILState_Release(lock);
    return status;
}

static const char *get_last_error(struct ArrowArrayStream *stream) {
    Reading *const reading = reading_of(stream);
    return reading->error[0] ? reading->error : reading->inner.get_last_error(&reading->inner);
}

static void release(struct ArrowArrayStream *stream) {
    Reading *const reading = reading_of(stream);
    const PyGILState_STATE lock = PyGILState_Ensure();
    stream->release = NULL;
    reading->inner.release(&reading->inner);
    Py_DECREF(reading->recording);
    PyMem_Free(reading);
    PyGILState_Release(lock);
}

/* ---- As an object ---- */

typedef struct {
    PyObject base;
    struct ArrowArrayStream stream; /* released once it is handed over, or read to its end */
    struct ArrowSchema schema;
} Stream;

static PyTypeObject *stream_type;

static bool open_stream(Stream *self, Recording *recording, const ast_columns_options_t *options) {
    Reading *const reading = PyMem_Calloc(1, sizeof *reading);
    if (!reading) return PyErr_NoMemory();
    ast_recording_error_t error;
    if (!ast_columns_get_stream(recording->recording, options, &reading->inner, &error)) {
        PyMem_Free(reading);
        return raise_open_error(&error, NULL);
    }
    Py_INCREF(recording);
    reading->recording = recording;
    self->stream = (struct ArrowArrayStream){.get_schema = get_schema,
                                             .get_next = get_next,
                                             .get_last_error = get_last_error,
                                             .release = release,
                                             .private_data = reading};
    return true;
}

static void *raise_stream_error(Stream *self) {
    const char *const text = self->stream.get_last_error(&self->stream);
    return raise_error(text ? text : "no memory", &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "input"});
}

static bool read_schema(Stream *self, struct ArrowSchema *schema) {
    return self->stream.get_schema(&self->stream, schema) == 0 || raise_stream_error(self);
}

PyObject *open_columns(Recording *recording, const char *columns, const char *names, uint64_t rows) {
    const ast_columns_options_t options = {.columns = columns,
                                           .names = names,
                                           .categories = recording->categories,
                                           .filter = recording->filter,
                                           .sites = recording->sites ? &recording->sites->table : NULL,
                                           .rows = rows};
    Stream *const self = PyObject_New(Stream, stream_type);
    if (!self) return NULL;
    self->stream.release = NULL;
    self->schema.release = NULL;
    if (open_stream(self, recording, &options) && read_schema(self, &self->schema)) return (PyObject *)self;
    Py_DECREF(self);
    return NULL;
}

static void free_stream(PyObject *object) {
    struct ArrowArrayStream *const stream = &((Stream *)object)->stream;
    struct ArrowSchema *const schema = &((Stream *)object)->schema;
    if (schema->release) schema->release(schema);
    if (stream->release) stream->release(stream);
    free_instance(object);
}

static bool is_there(const Stream *self) {
    if (!self->stream.release)
        raise_error("these columns have been taken already",
                    &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "closed"});
    return self->stream.release;
}

/* ---- In capsules ---- */

static const char kStreamName[] = "arrow_array_stream";
static const char kSchemaName[] = "arrow_schema";

static void free_stream_capsule(PyObject *capsule) {
    struct ArrowArrayStream *const stream = PyCapsule_GetPointer(capsule, kStreamName);
    if (stream->release) stream->release(stream);
    PyMem_Free(stream);
}

static void free_schema_capsule(PyObject *capsule) {
    struct ArrowSchema *const schema = PyCapsule_GetPointer(capsule, kSchemaName);
    if (schema->release) schema->release(schema);
    PyMem_Free(schema);
}

static PyObject *arrow_stream(PyObject *object, PyObject *arguments, PyObject *keywords) {
    static char *names[] = {"requested_schema", NULL};
    PyObject *ignored;
    Stream *const self = (Stream *)object;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "|O", names, &ignored) || !is_there(self)) return NULL;
    struct ArrowArrayStream *const moved = PyMem_Malloc(sizeof *moved);
    if (!moved) return PyErr_NoMemory();
    *moved = self->stream;
    PyObject *const capsule = PyCapsule_New(moved, kStreamName, free_stream_capsule);
    if (capsule)
        self->stream.release = NULL;
    else
        PyMem_Free(moved);
    return capsule;
}

static PyObject *arrow_schema(PyObject *object, PyObject *none) {
    (void)none;
    Stream *const self = (Stream *)object;
    if (!is_there(self)) return NULL;
    struct ArrowSchema *const schema = PyMem_Calloc(1, sizeof *schema);
    if (!schema) return PyErr_NoMemory();
    if (!read_schema(self, schema)) {
        PyMem_Free(schema);
        return NULL;
    }
    PyObject *const capsule = PyCapsule_New(schema, kSchemaName, free_schema_capsule);
    if (!capsule) {
        schema->release(schema);
        PyMem_Free(schema);
    }
    return capsule;
}

/* ---- As octets ---- */

static PyObject *make_head(const struct ArrowSchema *schema) {
    const char *const format = schema->dictionary ? schema->dictionary->format : schema->format;
    return Py_BuildValue("ss", schema->name, format);
}

/* [(name, format)], with the format of a dictionary's texts for codes. */
static PyObject *heads(PyObject *object, PyObject *none) {
    (void)none;
    const struct ArrowSchema *const schema = &((const Stream *)object)->schema;
    PyObject *const all = PyList_New(0);
    for (int64_t i = 0; all && i < schema->n_children; ++i) {
        PyObject *const head = make_head(schema->children[i]);
        if (head) PyList_Append(all, head);
        Py_XDECREF(head);
    }
    if (!PyErr_Occurred()) return all;
    Py_XDECREF(all);
    return NULL;
}

/* What of a column has come so far, each row once: no copy is made when it is whole. */
typedef struct {
    size_t width;      /* octets of a value; a flag takes one */
    PyObject *values;  /* a bytearray */
    PyObject *missing; /* likewise, an octet a row; null as long as nothing is */
    PyObject *texts;   /* that values are places among; None where they are none */
} Pile;

/* By Arrow's names of their types; 0 for columns that have no values of their own. */
static size_t width_of(const char *format) {
    static const struct {
        const char *format;
        size_t octets;
    } kWidths[] = {{"b", 1}, {"i", 4}, {"l", 8}, {"g", 8}, {"tsn:UTC", 8}};
    for (size_t i = 0; i < sizeof kWidths / sizeof *kWidths; ++i)
        if (strcmp(kWidths[i].format, format) == 0) return kWidths[i].octets;
    return 0;
}

/* Room for so many values in all. */
static uint8_t *resize(PyObject *array, size_t octets) {
    return PyByteArray_Resize(array, (Py_ssize_t)octets) == 0 ? (uint8_t *)PyByteArray_AsString(array) : NULL;
}

static bool bit_of(const uint8_t *bits, int64_t i) { return bits[i / 8] >> i % 8 & 1; }

static bool pile_missing(Pile *pile, const struct ArrowArray *array, size_t rows) {
    if (array->null_count == 0 && !pile->missing) return true;
    if (!pile->missing && !(pile->missing = PyByteArray_FromStringAndSize(NULL, 0))) return false;
    const size_t before = (size_t)PyByteArray_Size(pile->missing); /* fewer than rows where nothing was missing */
    uint8_t *const all = resize(pile->missing, rows + (size_t)array->length);
    if (!all) return false;
    memset(all + before, 0, rows + (size_t)array->length - before);
    const uint8_t *const validity = array->buffers[0];
    for (int64_t i = 0; array->null_count != 0 && i < array->length; ++i) all[rows + (size_t)i] = !bit_of(validity, i);
    return true;
}

static bool pile_texts(Pile *pile, const struct ArrowArray *dictionary) {
    const int32_t *const ends = dictionary->buffers[1];
    const char *const characters = dictionary->buffers[2];
    bool is_whole = true;
    for (int64_t i = 0; is_whole && i < dictionary->length; ++i) {
        PyObject *const text =
            PyUnicode_DecodeUTF8(characters + ends[i], (Py_ssize_t)(ends[i + 1] - ends[i]), "replace");
        is_whole = text && PyList_Append(pile->texts, text) == 0;
        Py_XDECREF(text);
    }
    return is_whole;
}

/* The codes of a batch begin at 0; those of the pile go on. */
static bool pile_codes(Pile *pile, const struct ArrowArray *array, uint8_t *to) {
    const int32_t first = (int32_t)PyList_Size(pile->texts);
    const int32_t *const codes = array->buffers[1];
    int32_t *const all = (int32_t *)(void *)to;
    for (int64_t i = 0; i < array->length; ++i) all[i] = first + codes[i];
    return pile_texts(pile, array->dictionary);
}

static bool pile_column(Pile *pile, const struct ArrowArray *array, const struct ArrowSchema *schema, size_t rows) {
    if (!pile_missing(pile, array, rows)) return false;
    const size_t count = (size_t)array->length;
    uint8_t *const all = resize(pile->values, (rows + count) * pile->width);
    if (!all) return false;
    uint8_t *const to = all + rows * pile->width;
    if (array->dictionary) return pile_codes(pile, array, to);
    if (strcmp(schema->format, "b") == 0)
        for (int64_t i = 0; i < array->length; ++i) to[i] = bit_of(array->buffers[1], i);
    else if (count != 0)
        memcpy(to, array->buffers[1], count * pile->width);
    return true;
}

static bool begin_pile(Pile *pile, const struct ArrowSchema *schema) {
    pile->width = width_of(schema->format);
    pile->values = PyByteArray_FromStringAndSize(NULL, 0);
    pile->texts = schema->dictionary ? PyList_New(0) : NULL;
    return pile->values && (pile->texts || !schema->dictionary);
}

static void free_piles(Pile *piles, int64_t count) {
    for (int64_t i = 0; i < count; ++i) {
        Py_XDECREF(piles[i].values);
        Py_XDECREF(piles[i].missing);
        Py_XDECREF(piles[i].texts);
    }
    PyMem_Free(piles);
}

/* The next batch; one that is released behind the last. */
static bool take_batch(Stream *self, struct ArrowArray *batch) {
    const int status = self->stream.get_next(&self->stream, batch);
    if (PyErr_CheckSignals() == 0 && status != 0) raise_stream_error(self);
    if (!PyErr_Occurred()) return true;
    if (batch->release) batch->release(batch);
    return false;
}

static bool pile_up(Stream *self, Pile *piles) {
    for (size_t rows = 0;;) {
        struct ArrowArray batch = {.release = NULL};
        if (!take_batch(self, &batch)) return false;
        if (!batch.release) return true;
        bool is_whole = true;
        for (int64_t i = 0; is_whole && i < batch.n_children; ++i)
            is_whole = pile_column(&piles[i], batch.children[i], self->schema.children[i], rows);
        rows += (size_t)batch.length;
        batch.release(&batch);
        if (!is_whole) return false;
    }
}

/* [(values, missing or None, texts or None)], of all that is left, as octets. Flags are one octet each. */
static PyObject *take_all(PyObject *object, PyObject *none) {
    (void)none;
    Stream *const self = (Stream *)object;
    if (!is_there(self)) return NULL;
    const int64_t count = self->schema.n_children;
    Pile *const piles = PyMem_Calloc((size_t)count + 1, sizeof *piles);
    if (!piles) return PyErr_NoMemory();
    bool is_whole = true;
    for (int64_t i = 0; is_whole && i < count; ++i) is_whole = begin_pile(&piles[i], self->schema.children[i]);
    PyObject *const all = is_whole && pile_up(self, piles) ? PyList_New(0) : NULL;
    for (int64_t i = 0; all && i < count && !PyErr_Occurred(); ++i) {
        const Pile *const pile = &piles[i];
        PyObject *const column = Py_BuildValue("OOO", pile->values, pile->missing ? pile->missing : Py_None,
                                               pile->texts ? pile->texts : Py_None);
        if (column) PyList_Append(all, column);
        Py_XDECREF(column);
    }
    free_piles(piles, count);
    if (all && !PyErr_Occurred()) {
        self->stream.release(&self->stream);
        return all;
    }
    Py_XDECREF(all);
    return NULL;
}

static PyMethodDef stream_methods[] = {
    {"__arrow_c_stream__", WITH_KEYWORDS(arrow_stream), METH_VARARGS | METH_KEYWORDS, NULL},
    {"__arrow_c_schema__", arrow_schema, METH_NOARGS, NULL},
    {"heads", heads, METH_NOARGS, NULL},
    {"take_all", take_all, METH_NOARGS, NULL},
    {NULL, NULL, 0, NULL},
};

static PyType_Slot stream_slots[] = {
    {Py_tp_new, SLOT(refuse_new)},
    {Py_tp_dealloc, SLOT(free_stream)},
    {Py_tp_methods, stream_methods},
    {0, NULL},
};
static PyType_Spec stream_spec = {
    .name = "libast._libast.Stream", .basicsize = sizeof(Stream), .flags = Py_TPFLAGS_DEFAULT, .slots = stream_slots};

bool add_columns(PyObject *module) { return (stream_type = add_type(module, "Stream", &stream_spec)) != NULL; }
