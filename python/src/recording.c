/* Recordings and streams: iterating over their records. The lock of the interpreter is let go while blocks are read. */
#include "recording.h"

#include <string.h>

/* ---- Opening ---- */

static bool read_manners(const char *text, Manners *manners) {
    static const char *const kNames[] = {"ignore", "warn", "raise"};
    for (size_t i = 0; i < sizeof kNames / sizeof *kNames; ++i)
        if (strcmp(text, kNames[i]) == 0) {
            *manners = (Manners)i;
            return true;
        }
    PyErr_SetString(PyExc_ValueError, "errors: is none of \"ignore\", \"warn\" and \"raise\"");
    return false;
}

static bool read_timeout(PyObject *timeout, int64_t *timeout_ms) {
    const double kMost_s = 1e9, kMillisecondsPerSecond = 1000;
    *timeout_ms = -1;
    if (timeout == Py_None) return true;
    const double s = PyFloat_AsDouble(timeout);
    if (PyErr_Occurred()) return false;
    if (!(s >= 0)) {
        PyErr_SetString(PyExc_ValueError, "timeout: is less than 0, or no number");
        return false;
    }
    *timeout_ms = (int64_t)((s < kMost_s ? s : kMost_s) * kMillisecondsPerSecond);
    return true;
}

static bool keep_categories(Recording *self, const char *categories) {
    if (!categories) return true;
    self->categories = PyMem_Malloc(strlen(categories) + 1);
    if (self->categories)
        strcpy(self->categories, categories);
    else
        PyErr_NoMemory();
    return self->categories;
}

static bool open_filter(Recording *self, const char *where) {
    if (!where) return true;
    ast_filter_error_t mistake;
    self->filter = ast_filter_open(where, &mistake);
    return self->filter || raise_filter_error(&mistake, where);
}

/* Null for names that cannot be. The octets of each stand in an object of the list. */
static const char **names_in(PyObject *list) {
    const Py_ssize_t count = PyList_Size(list);
    const char **const all = PyMem_Malloc((size_t)(count + 1) * sizeof *all);
    if (!all) PyErr_NoMemory();
    for (Py_ssize_t i = 0; all && i < count; ++i)
        if (!(all[i] = PyBytes_AsString(PyList_GetItem(list, i))) ||
            strlen(all[i]) != (size_t)PyBytes_Size(PyList_GetItem(list, i))) {
            if (!PyErr_Occurred()) PyErr_SetString(PyExc_ValueError, "a name with a null character in it");
            PyMem_Free(all);
            return NULL;
        }
    return all;
}

static bool open_inputs(Recording *self, PyObject *inputs, const ast_recording_options_t *options) {
    const char **const all = names_in(inputs);
    if (!all) return false;
    const uint64_t count = (uint64_t)PyList_Size(inputs);
    ast_recording_error_t error;
    PyThreadState *const lock = PyEval_SaveThread();
    self->recording = ast_recording_open(all, count, options, &error);
    PyEval_RestoreThread(lock);
    self->names_files = count > 1 && !strstr(all[0], "://");
    if (!self->recording) raise_open_error(&error, count == 1 ? all[0] : NULL);
    PyMem_Free(all);
    return self->recording;
}

static bool open_octets(Recording *self, PyObject *octets, const char *name, const ast_recording_options_t *options) {
    ast_recording_error_t error;
    Py_INCREF(octets);
    self->source = octets;
    self->recording = ast_recording_open_octets((const uint8_t *)PyBytes_AsString(octets),
                                                (uint64_t)PyBytes_Size(octets), name, options, &error);
    return self->recording || raise_open_error(&error, name);
}

static Recording *make_recording(PyTypeObject *type) {
    Recording *const self = PyObject_New(Recording, type);
    if (!self) return NULL;
    memset((char *)self + sizeof(PyObject), 0, sizeof *self - sizeof(PyObject));
    self->end_of_told = &self->told;
    self->reports = PyList_New(0);
    self->causes = PySet_New(NULL);
    if (self->reports && self->causes) return self;
    Py_DECREF(self);
    return NULL;
}

static PyObject *new_recording(PyTypeObject *type, PyObject *arguments, PyObject *keywords) {
    static char *names[] = {"inputs",  "name",       "where",   "errors", "timeout", "sites", "framing",
                            "profile", "categories", "ports",   "hosts",  "start",   "end",   "network_interface",
                            "merge",   "follow",     "threads", NULL};
    PyObject *inputs, *timeout = Py_None, *sites = Py_None;
    const char *name = NULL, *where = NULL, *errors = "warn";
    ast_recording_options_t options = {.report = tell};
    int merges = 0, follows = 0;
    int threads = 0;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "O|zzsOOzzzzzzzzppi", names, &inputs, &name, &where, &errors,
                                     &timeout, &sites, &options.framing, &options.profile, &options.categories,
                                     &options.ports, &options.hosts, &options.from, &options.to,
                                     &options.network_interface, &merges, &follows, &threads))
        return NULL;
    options.merge = merges != 0;
    options.follow = follows != 0;
    options.threads = (uint32_t)threads;
    if (!PyBytes_Check(inputs) && !PyList_Check(inputs)) {
        PyErr_SetString(PyExc_TypeError, "inputs: is neither bytes nor a list");
        return NULL;
    }
    if (sites != Py_None && Py_TYPE(sites) != sites_type) {
        PyErr_SetString(PyExc_TypeError, "sites: is neither None nor made by libast.sites");
        return NULL;
    }
    Recording *const self = make_recording(type);
    if (!self) return NULL;
    options.context = self;
    if (sites != Py_None) {
        Py_INCREF(sites);
        self->sites = (Sites *)sites;
    }
    const bool is_open =
        read_manners(errors, &self->manners) && read_timeout(timeout, &self->timeout_ms) && open_filter(self, where) &&
        keep_categories(self, options.categories) &&
        (PyBytes_Check(inputs) ? open_octets(self, inputs, name, &options) : open_inputs(self, inputs, &options));
    if (is_open) return (PyObject *)self;
    Py_DECREF(self);
    return NULL;
}

static void close_recording(Recording *self) {
    ast_recording_t *const recording = self->recording;
    self->recording = NULL;
    self->is_found = false;
    self->next = self->at.records = 0;
    Py_CLEAR(self->block);
    PyThreadState *const lock = PyEval_SaveThread();
    ast_recording_close(recording);
    PyEval_RestoreThread(lock);
    Py_CLEAR(self->source);
}

static void free_recording(PyObject *object) {
    Recording *const self = (Recording *)object;
    close_recording(self);
    ast_filter_close(self->filter);
    drop_reports(self);
    PyMem_Free(self->categories);
    Py_CLEAR(self->sites);
    Py_CLEAR(self->reports);
    Py_CLEAR(self->causes);
    Py_CLEAR(self->file);
    free_instance(object);
}

/* ---- Reading ---- */

static void ask(const Recording *self, const ast_datarecord_t *record, ast_answers_t *answers) {
    const int64_t time_ns = self->at.time_ns;
    const ast_answer_context_t context = {.has_reception = time_ns != AST_TIME_UNKNOWN, .reception_ns = time_ns};
    ast_datarecord_get_answers(record, &context, answers);
    if (self->sites) ast_sites_locate(&self->sites->table, answers);
}

static bool is_wanted(const Recording *self) {
    if (!self->filter) return true;
    ast_answers_t answers;
    ask(self, &self->record, &answers);
    return ast_filter_matches(self->filter, &self->record, &answers);
}

/* The next record of the block that is wanted; where sites are learnt, the next one, since they are learnt with the
 * lock. */
static bool find_in_block(Recording *self) {
    while (self->next < self->at.records) {
        if (!ast_recording_get_record(self->recording, self->next, &self->record)) break;
        ++self->next;
        if (self->sites || is_wanted(self)) return true;
    }
    self->next = self->at.records;
    return false;
}

typedef enum { kFound, kPaused, kOver } Found;

/* Without the lock: until there is a record, or something else to look after, signals at the latest after so many
 * milliseconds or blocks. */
static Found search(Recording *self, int64_t *left_ms) {
    enum { kSlice_ms = 50, kBlocks = 2000 };
    for (unsigned i = 0; i < kBlocks; ++i) {
        if (find_in_block(self)) return kFound;
        if (self->told) return kPaused;
        const int64_t slice_ms = *left_ms >= 0 && *left_ms < kSlice_ms ? *left_ms : kSlice_ms;
        self->next = 0;
        self->is_new_block = true;
        if (!ast_recording_next_within(self->recording, &self->at, (uint32_t)slice_ms)) {
            if (ast_recording_get_state(self->recording, NULL) != AST_RECORDING_QUIET) return kOver;
            if (*left_ms == 0) return kOver;
            if (*left_ms > 0) *left_ms -= slice_ms;
            return kPaused;
        }
        *left_ms = self->timeout_ms;
    }
    return kPaused;
}

static Found search_unlocked(Recording *self, int64_t *left_ms) {
    self->is_in_use = true;
    PyThreadState *const lock = PyEval_SaveThread();
    const Found found = search(self, left_ms);
    PyEval_RestoreThread(lock);
    self->is_in_use = false;
    if (self->is_new_block) Py_CLEAR(self->block);
    self->is_new_block = false;
    return found;
}

static bool refuses(const Recording *self) {
    if (self->is_in_use) PyErr_SetString(PyExc_RuntimeError, "another thread is reading this recording");
    return self->is_in_use;
}

static bool is_ready(const Recording *self) {
    if (refuses(self)) return false;
    const char *const why = !self->recording    ? "the recording is closed"
                            : self->is_streamed ? "the recording is read as columns"
                                                : NULL;
    if (why) raise_error(why, &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "closed"});
    return !why;
}

static PyObject *fail(Recording *self, const ast_recording_error_t *error) {
    if (self->manners != kIgnore) raise_open_error(error, NULL);
    return NULL;
}

/* Why there is none: without an exception, iteration ends. */
static PyObject *end_of(Recording *self) {
    ast_recording_state_t state;
    const uint32_t phase = ast_recording_get_state(self->recording, &state);
    return phase == AST_RECORDING_FAILED ? fail(self, &state.error) : NULL;
}

/* The names of inputs stay the same from block to block. */
static PyObject *name_of_file(Recording *self) {
    PyObject *const name = PyUnicode_DecodeFSDefault(self->at.file);
    if (!name) return NULL;
    if (self->file && PyUnicode_Compare(self->file, name) == 0) {
        Py_DECREF(name);
        return self->file;
    }
    Py_XDECREF(self->file);
    return self->file = name;
}

static PyObject *hand_over(Recording *self) {
    if (!self->block) {
        PyObject *const file = name_of_file(self);
        self->block = file ? make_block(&self->at, file, self->sites, self->names_files) : NULL;
    }
    self->is_found = false;
    return self->block ? make_record(self->block, &self->record, self->at.octets, self->next - 1) : NULL;
}

/* With the lock: whether the record that was found is wanted after all. */
static bool is_kept(Recording *self) {
    if (!self->sites) return true;
    ast_sites_learn(&self->sites->table, &self->record);
    return is_wanted(self);
}

static PyObject *next_record(PyObject *object) {
    Recording *const self = (Recording *)object;
    if (!is_ready(self)) return NULL;
    if (self->is_found) return hand_over(self);
    for (int64_t left_ms = self->timeout_ms;;) {
        const bool is_at_hand = (!self->filter || self->sites) && find_in_block(self);
        const Found found = is_at_hand ? kFound : search_unlocked(self, &left_ms);
        self->is_found = found == kFound && is_kept(self);
        if (self->told && !hand_over_reports(self)) return NULL;
        if (self->is_found) return hand_over(self);
        if (found == kOver) return end_of(self);
        if (PyErr_CheckSignals() != 0) return NULL;
    }
}

/* ---- The rest ---- */

static PyObject *close_it(PyObject *object, PyObject *none) {
    (void)none;
    if (refuses((Recording *)object)) return NULL;
    close_recording((Recording *)object);
    Py_RETURN_NONE;
}

/* The columns as the library takes them, "timestamp,fl"; null for the usual ones. */
static PyObject *join(PyObject *columns) {
    PyObject *const comma = PyUnicode_FromString(",");
    PyObject *const joined = comma ? PyUnicode_Join(comma, columns) : NULL;
    PyObject *const octets = joined ? PyUnicode_AsUTF8String(joined) : NULL;
    Py_XDECREF(comma);
    Py_XDECREF(joined);
    return octets;
}

static PyObject *wrap_stream(PyObject *stream) {
    PyObject *const module = stream ? PyImport_ImportModule("libast._columns") : NULL;
    PyObject *const wrapped = module ? PyObject_CallMethod(module, "Columns", "O", stream) : NULL;
    Py_XDECREF(module);
    Py_XDECREF(stream);
    return wrapped;
}

static PyObject *columns(PyObject *object, PyObject *arguments, PyObject *keywords) {
    static char *options[] = {"names", "rows", NULL};
    Recording *const self = (Recording *)object;
    const char *names = NULL;
    unsigned long long rows = 0;
    PyObject *const none = PyTuple_New(0);
    const bool is_read = none && PyArg_ParseTupleAndKeywords(none, keywords, "|zK", options, &names, &rows);
    Py_XDECREF(none);
    if (!is_read || !is_ready(self)) return NULL;
    PyObject *const list = join(arguments);
    if (!list) return NULL;
    PyObject *const stream = open_columns(self, PyTuple_Size(arguments) ? PyBytes_AsString(list) : NULL, names, rows);
    Py_DECREF(list);
    self->is_streamed = stream;
    return wrap_stream(stream);
}

static PyObject *interrupt(PyObject *object, PyObject *none) {
    (void)none;
    ast_recording_interrupt(((Recording *)object)->recording);
    Py_RETURN_NONE;
}

static PyObject *enter(PyObject *self, PyObject *none) {
    (void)none;
    Py_INCREF(self);
    return self;
}

static PyObject *leave(PyObject *object, PyObject *exception) {
    (void)exception;
    return close_it(object, NULL);
}

static PyObject *get_reports(PyObject *object, void *closure) {
    (void)closure;
    PyObject *const reports = ((Recording *)object)->reports;
    Py_INCREF(reports);
    return reports;
}

/* Of a closed recording, and while another thread reads, nothing is known. */
static void look_at(PyObject *object, ast_recording_state_t *state) {
    const Recording *const self = (const Recording *)object;
    *state = (ast_recording_state_t){.phase = AST_RECORDING_ENDED};
    if (self->recording && !self->is_in_use) ast_recording_get_state(self->recording, state);
}

static PyObject *get_framing(PyObject *object, void *closure) {
    (void)closure;
    ast_recording_state_t state;
    look_at(object, &state);
    if (!state.framing) Py_RETURN_NONE;
    return PyUnicode_FromString(state.framing);
}

static PyObject *get_file(PyObject *object, void *closure) {
    (void)closure;
    ast_recording_state_t state;
    look_at(object, &state);
    if (!state.file) Py_RETURN_NONE;
    return PyUnicode_DecodeFSDefault(state.file);
}

static PyObject *get_blocks(PyObject *object, void *closure) {
    (void)closure;
    ast_recording_state_t state;
    look_at(object, &state);
    return PyLong_FromUnsignedLongLong(state.blocks);
}

static PyObject *get_octets_read(PyObject *object, void *closure) {
    (void)closure;
    ast_recording_state_t state;
    look_at(object, &state);
    return PyLong_FromUnsignedLongLong(state.octets_read);
}

static PyObject *get_report_counts(PyObject *object, void *closure) {
    (void)closure;
    ast_recording_state_t state;
    look_at(object, &state);
    PyObject *const counts = PyDict_New();
    for (uint32_t kind = 0; counts && kind < AST_REPORT_KINDS; ++kind) {
        PyObject *const count = PyLong_FromUnsignedLongLong(state.reports[kind]);
        const bool is_set = count && PyDict_SetItemString(counts, ast_recording_report_kind_to_str(kind), count) == 0;
        Py_XDECREF(count);
        if (!is_set) {
            Py_DECREF(counts);
            return NULL;
        }
    }
    return counts;
}

static PyGetSetDef recording_attributes[] = {
    {"reports", get_reports, NULL,
     "What has been damaged or is worth knowing so far, a list of Report, of 10,000 at most.", NULL},
    {"report_counts", get_report_counts, NULL, "How many reports of each kind there were, also beyond that list.",
     NULL},
    {"framing", get_framing, NULL, "How blocks are wrapped and compressed: \"raw\", \"pcap, gzip\", \"udp\".", NULL},
    {"file", get_file, NULL, "The input that is read, as it was given.", NULL},
    {"blocks", get_blocks, NULL, "How many blocks have been read.", NULL},
    {"octets_read", get_octets_read, NULL, "How many octets have been read, as they are without compression.", NULL},
    {NULL, NULL, NULL, NULL, NULL},
};

static PyMethodDef recording_methods[] = {
    {"columns", WITH_KEYWORDS(columns), METH_VARARGS | METH_KEYWORDS,
     "columns($self, *columns, names=None, rows=0)\n--\n\n"
     "What is left of the recording as columns, a row a record: \"timestamp\", \"icao24\", \"I048/090/FL\"; the "
     "common\n"
     "ones where none are named; \"all\" for every published field of one category. names=\"traffic\" names them as\n"
     "readers of that name expect. rows: of a batch, 0 for 100,000."},
    {"close", close_it, METH_NOARGS, "close($self)\n--\n\nCloses it; its records stay good."},
    {"interrupt", interrupt, METH_NOARGS,
     "interrupt($self)\n--\n\nEnds any wait, from whatever thread; there are no more records."},
    {"__enter__", enter, METH_NOARGS, NULL},
    {"__exit__", leave, METH_VARARGS, NULL},
    {NULL, NULL, 0, NULL},
};

static PyObject *iterate(PyObject *self) { return enter(self, NULL); }

static PyType_Slot recording_slots[] = {
    {Py_tp_doc, (void *)(uintptr_t) "An open recording or stream: iterate over its records. Made by libast.open."},
    {Py_tp_new, SLOT(new_recording)},
    {Py_tp_dealloc, SLOT(free_recording)},
    {Py_tp_iter, SLOT(iterate)},
    {Py_tp_iternext, SLOT(next_record)},
    {Py_tp_getset, recording_attributes},
    {Py_tp_methods, recording_methods},
    {0, NULL},
};
static PyType_Spec recording_spec = {
    .name = "libast.Recording", .basicsize = sizeof(Recording), .flags = Py_TPFLAGS_DEFAULT, .slots = recording_slots};

bool add_recording(PyObject *module) { return add_type(module, "Recording", &recording_spec); }
