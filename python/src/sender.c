/* Sending, at the times of a recording or at once. The lock of the interpreter is let go while datagrams wait. */
#include "binding.h"

typedef struct {
    PyObject base;
    ast_sender_t *sender; /* null once it is closed */
    bool is_in_use;
} Sender;

static PyObject *new_sender(PyTypeObject *type, PyObject *arguments, PyObject *keywords) {
    static char *names[] = {"url", "speed", "listen", "bits_per_second", "ttl", "network_interface", NULL};
    ast_sender_options_t options = {.speed = 1};
    const char *url;
    int listens = 0;
    unsigned long long bits_per_s = 0;
    int ttl = 0;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "s|dpKiz", names, &url, &options.speed, &listens, &bits_per_s,
                                     &ttl, &options.network_interface))
        return NULL;
    options.most_bits_per_s = bits_per_s;
    options.ttl = (uint32_t)ttl;
    Sender *const self = PyObject_New(Sender, type);
    if (!self) return NULL;
    self->is_in_use = false;
    ast_recording_error_t error;
    PyThreadState *const lock = PyEval_SaveThread();
    self->sender = (listens ? ast_sender_listen : ast_sender_open)(url, &options, &error);
    PyEval_RestoreThread(lock);
    if (self->sender) return (PyObject *)self;
    Py_DECREF(self);
    return raise_open_error(&error, url);
}

static void close_sender(Sender *self) {
    ast_sender_t *const sender = self->sender;
    self->sender = NULL;
    PyThreadState *const lock = PyEval_SaveThread();
    ast_sender_close(sender);
    PyEval_RestoreThread(lock);
}

static void free_sender(PyObject *object) {
    close_sender((Sender *)object);
    free_instance(object);
}

static bool is_ready(const Sender *self) {
    if (self->is_in_use) PyErr_SetString(PyExc_RuntimeError, "another thread is sending by this sender");
    if (!self->is_in_use && !self->sender)
        raise_error("the sender is closed", &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "closed"});
    return !self->is_in_use && self->sender;
}

/* False when a signal has become an exception. */
static bool wait_until_due(Sender *self, uint64_t count, int64_t time_ns) {
    enum { kSlice_ms = 50 };
    bool is_due = false;
    while (!is_due && PyErr_CheckSignals() == 0) {
        PyThreadState *const lock = PyEval_SaveThread();
        is_due = ast_sender_wait_within(self->sender, count, time_ns, kSlice_ms);
        PyEval_RestoreThread(lock);
    }
    return is_due;
}

static PyObject *send_octets(Sender *self, const uint8_t *octets, uint64_t count, int64_t time_ns) {
    bool is_sent = false;
    self->is_in_use = true;
    const bool is_due = wait_until_due(self, count, time_ns);
    if (is_due) {
        PyThreadState *const lock = PyEval_SaveThread();
        is_sent = ast_sender_send_at(self->sender, octets, count, time_ns);
        PyEval_RestoreThread(lock);
    }
    self->is_in_use = false;
    return is_due ? PyBool_FromLong(is_sent) : NULL;
}

/* The octets of a datagram and when it was received, or None. */
static PyObject *send_datagram(PyObject *object, PyObject *arguments) {
    Sender *const self = (Sender *)object;
    PyObject *given, *time = Py_None;
    if (!PyArg_ParseTuple(arguments, "O|O", &given, &time)) return NULL;
    const int64_t time_ns = time == Py_None ? AST_TIME_UNKNOWN : PyLong_AsLongLong(time);
    if (PyErr_Occurred() || !is_ready(self)) return NULL;
    PyObject *const octets = PyBytes_FromObject(given);
    if (!octets) return NULL;
    PyObject *const is_sent =
        send_octets(self, (const uint8_t *)PyBytes_AsString(octets), (uint64_t)PyBytes_Size(octets), time_ns);
    Py_DECREF(octets);
    return is_sent;
}

static PyObject *close_it(PyObject *object, PyObject *none) {
    (void)none;
    Sender *const self = (Sender *)object;
    if (self->sender && !is_ready(self)) return NULL;
    close_sender(self);
    Py_RETURN_NONE;
}

static PyObject *statistics(PyObject *object, void *closure) {
    (void)closure;
    const double kNanosecondsPerSecond = 1e9;
    if (!is_ready((Sender *)object)) return NULL;
    ast_sender_statistics_t found;
    ast_sender_get_statistics(((Sender *)object)->sender, &found);
    return Py_BuildValue("{sKsKsKsdsdss}", "sent", (unsigned long long)found.sent, "octets",
                         (unsigned long long)found.octets, "failed", (unsigned long long)found.failed, "late_median_s",
                         (double)found.late_median_ns / kNanosecondsPerSecond, "late_greatest_s",
                         (double)found.late_greatest_ns / kNanosecondsPerSecond, "failure", found.failure.text);
}

static PyGetSetDef sender_attributes[] = {
    {"statistics", statistics, NULL, "What has become of the datagrams so far, a dict.", NULL},
    {NULL, NULL, NULL, NULL, NULL},
};

static PyMethodDef sender_methods[] = {
    {"send", send_datagram, METH_VARARGS,
     "send($self, octets, time_ns=None)\n--\n\nWaits until it is due, and sends one datagram."},
    {"close", close_it, METH_NOARGS, "close($self)\n--\n\nWaits for what is on its way, and closes it."},
    {NULL, NULL, 0, NULL},
};

static PyType_Slot sender_slots[] = {
    {Py_tp_new, SLOT(new_sender)},
    {Py_tp_dealloc, SLOT(free_sender)},
    {Py_tp_getset, sender_attributes},
    {Py_tp_methods, sender_methods},
    {0, NULL},
};
static PyType_Spec sender_spec = {
    .name = "libast._libast.Sender", .basicsize = sizeof(Sender), .flags = Py_TPFLAGS_DEFAULT, .slots = sender_slots};

bool add_sender(PyObject *module) { return add_type(module, "Sender", &sender_spec); }
