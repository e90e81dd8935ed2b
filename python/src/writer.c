/* Writing files: blocks with their times and addresses. */
#include "binding.h"

typedef struct {
    PyObject base;
    ast_writer_t *writer; /* null once it is closed */
} Writer;

static PyObject *new_writer(PyTypeObject *type, PyObject *arguments, PyObject *keywords) {
    static char *names[] = {"path", NULL};
    PyObject *path;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "O&", names, PyUnicode_FSConverter, &path)) return NULL;
    Writer *const self = PyObject_New(Writer, type);
    if (self) {
        ast_recording_error_t error;
        self->writer = ast_writer_open(PyBytes_AsString(path), &error);
        if (!self->writer) raise_open_error(&error, PyBytes_AsString(path));
    }
    Py_DECREF(path);
    if (self && self->writer) return (PyObject *)self;
    Py_XDECREF(self);
    return NULL;
}

static void free_writer(PyObject *self) {
    ast_writer_discard(((Writer *)self)->writer);
    free_instance(self);
}

static bool is_open(const Writer *self) {
    if (!self->writer) raise_error("the file is closed", &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "closed"});
    return self->writer;
}

/* As a datagram that came as that record did, or from nobody knows where. */
static PyObject *write_datagram(PyObject *object, PyObject *arguments) {
    const Writer *const self = (const Writer *)object;
    PyObject *octets, *record = Py_None;
    if (!PyArg_ParseTuple(arguments, "S|O", &octets, &record) || !is_open(self)) return NULL;
    static const ast_recording_block_t kUnknown = {.time_ns = AST_TIME_UNKNOWN};
    const ast_recording_block_t *const from = is_record(record) ? &((const Record *)record)->block->from : &kUnknown;
    ast_recording_error_t error;
    if (!ast_writer_write(self->writer, (const uint8_t *)PyBytes_AsString(octets), (uint64_t)PyBytes_Size(octets),
                          from->time_ns, &from->sender, &from->receiver, &error))
        return raise_open_error(&error, NULL);
    Py_RETURN_NONE;
}

static PyObject *finish(PyObject *object, PyObject *none) {
    (void)none;
    Writer *const self = (Writer *)object;
    if (!is_open(self)) return NULL;
    ast_writer_t *const writer = self->writer;
    self->writer = NULL;
    ast_recording_error_t error;
    if (!ast_writer_finish(writer, &error)) return raise_open_error(&error, NULL);
    Py_RETURN_NONE;
}

static PyMethodDef writer_methods[] = {
    {"write", write_datagram, METH_VARARGS, "Writes one datagram, from where a record came."},
    {"finish", finish, METH_NOARGS, "The file takes its place."},
    {NULL, NULL, 0, NULL},
};

static PyType_Slot writer_slots[] = {
    {Py_tp_new, SLOT(new_writer)},
    {Py_tp_dealloc, SLOT(free_writer)},
    {Py_tp_methods, writer_methods},
    {0, NULL},
};
static PyType_Spec writer_spec = {
    .name = "libast._libast.Writer", .basicsize = sizeof(Writer), .flags = Py_TPFLAGS_DEFAULT, .slots = writer_slots};

bool add_writer(PyObject *module) { return add_type(module, "Writer", &writer_spec); }
