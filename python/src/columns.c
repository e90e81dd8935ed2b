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

static PyObject *make_buffer(const void *buffer, int64_t octets) {
    if (!buffer) Py_RETURN_NONE;
    return PyBytes_FromStringAndSize(buffer, (Py_ssize_t)octets);
}

/* The texts of a dictionary; None where there is none. */
static PyObject *make_texts(const struct ArrowArray *dictionary) {
    if (!dictionary) Py_RETURN_NONE;
    const int32_t *const ends = dictionary->buffers[1];
    const char *const characters = dictionary->buffers[2];
    PyObject *const texts = PyList_New((Py_ssize_t)dictionary->length);
    for (int64_t i = 0; texts && i < dictionary->length; ++i) {
        PyObject *const text =
            PyUnicode_DecodeUTF8(characters + ends[i], (Py_ssize_t)(ends[i + 1] - ends[i]), "replace");
        if (!text) {
            Py_DECREF(texts);
            return NULL;
        }
        PyList_SetItem(texts, (Py_ssize_t)i, text);
    }
    return texts;
}

/* Of the values of columns by Arrow's names of their types; 0 for those that have none of their own. */
static int64_t bits_of(const char *format) {
    static const struct {
        const char *format;
        int64_t bits;
    } kWidths[] = {{"b", 1}, {"i", 32}, {"l", 64}, {"g", 64}, {"tsn:UTC", 64}};
    for (size_t i = 0; i < sizeof kWidths / sizeof *kWidths; ++i)
        if (strcmp(kWidths[i].format, format) == 0) return kWidths[i].bits;
    return 0;
}

/* (validity or None, values, texts or None). */
static PyObject *make_column(const struct ArrowArray *array, const struct ArrowSchema *schema) {
    const int64_t kBitsPerOctet = 8;
    PyObject *const validity =
        make_buffer(array->null_count == 0 ? NULL : array->buffers[0], (array->length + 7) / kBitsPerOctet);
    PyObject *const values = make_buffer(array->n_buffers > 1 ? array->buffers[1] : NULL,
                                         (array->length * bits_of(schema->format) + 7) / kBitsPerOctet);
    PyObject *const texts = make_texts(array->dictionary);
    if (validity && values && texts) return Py_BuildValue("NNN", validity, values, texts);
    Py_XDECREF(validity);
    Py_XDECREF(values);
    Py_XDECREF(texts);
    return NULL;
}

static PyObject *make_batch(const struct ArrowArray *batch, const struct ArrowSchema *schema) {
    PyObject *const columns = PyList_New(0);
    for (int64_t i = 0; columns && i < batch->n_children; ++i) {
        PyObject *const column = make_column(batch->children[i], schema->children[i]);
        if (column) PyList_Append(columns, column);
        Py_XDECREF(column);
        if (PyErr_Occurred()) {
            Py_DECREF(columns);
            return NULL;
        }
    }
    return columns ? Py_BuildValue("LN", (long long)batch->length, columns) : NULL;
}

/* (rows, columns) of the next batch; None behind the last. */
static PyObject *next_batch(PyObject *object, PyObject *none) {
    (void)none;
    Stream *const self = (Stream *)object;
    if (!is_there(self)) return NULL;
    struct ArrowArray batch = {.release = NULL};
    const int status = self->stream.get_next(&self->stream, &batch);
    PyObject *made = NULL;
    if (PyErr_CheckSignals() == 0 && status != 0) raise_stream_error(self);
    if (!PyErr_Occurred() && batch.release) made = make_batch(&batch, &self->schema);
    if (batch.release) {
        batch.release(&batch);
        return made;
    }
    if (PyErr_Occurred()) return NULL;
    self->stream.release(&self->stream);
    Py_RETURN_NONE;
}

static PyMethodDef stream_methods[] = {
    {"__arrow_c_stream__", WITH_KEYWORDS(arrow_stream), METH_VARARGS | METH_KEYWORDS, NULL},
    {"__arrow_c_schema__", arrow_schema, METH_NOARGS, NULL},
    {"heads", heads, METH_NOARGS, NULL},
    {"next_batch", next_batch, METH_NOARGS, NULL},
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
