/* Encoding: records of dictionaries, and blocks of records. libast/_lines.py turns dictionaries into lines of JSON. */
#include "binding.h"

#include <string.h>

enum { kMostBlockOctets = 65535, kHeaderOctets = 3 };

/* The function of that name in libast/_lines.py, called with one or two objects; a str as UTF-8. */
static PyObject *line_of(const char *function, PyObject *one, PyObject *other) {
    PyObject *const module = PyImport_ImportModule("libast._lines");
    PyObject *const name = module ? PyUnicode_FromString(function) : NULL;
    PyObject *const line = name ? PyObject_CallMethodObjArgs(module, name, one, other, NULL) : NULL;
    PyObject *const octets = line ? PyUnicode_AsUTF8String(line) : NULL;
    Py_XDECREF(module);
    Py_XDECREF(name);
    Py_XDECREF(line);
    return octets;
}

/* ---- One record in the place of another ---- */

/* The first record of a block, as if it had come where the other one did. */
static PyObject *put_in_place(const Record *original, const ast_recording_block_t *block,
                              const ast_datarecord_t *record) {
    const Block *const old = original->block;
    ast_recording_block_t from = old->from;
    from.octets = block->octets;
    from.length = block->length;
    from.read = block->read;
    Block *const made = make_block(&from, old->file, old->sites, old->names_file);
    PyObject *const replaced = made ? make_record(made, record, block->octets, original->number - 1) : NULL;
    Py_XDECREF(made);
    return replaced;
}

static PyObject *record_of(ast_recording_t *recording, const Record *original) {
    ast_recording_block_t block;
    ast_datarecord_t record;
    if (!ast_recording_next(recording, &block) || !ast_recording_get_record(recording, 0, &record)) return NULL;
    return put_in_place(original, &block, &record);
}

static void raise_told(void *context, const ast_recording_report_t *report) {
    (void)context;
    if (is_loss(report) && !PyErr_Occurred()) raise_report(report);
}

static PyObject *read_replaced(const char *line, size_t chars, const Record *original) {
    const ast_recording_options_t options = {.framing = "json", .report = raise_told};
    ast_recording_error_t error;
    ast_recording_t *const recording = ast_recording_open_octets((const uint8_t *)line, chars, "", &options, &error);
    if (!recording) return raise_open_error(&error, NULL);
    PyObject *const replaced = record_of(recording, original);
    ast_recording_close(recording);
    if (!replaced && !PyErr_Occurred())
        raise_error("is no record", &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "line"});
    if (replaced && PyErr_Occurred()) Py_DECREF(replaced);
    return PyErr_Occurred() ? NULL : replaced;
}

/* ---- Blocks ---- */

/* A block as it grows. */
typedef struct {
    uint64_t octets; /* 0 before there is a record */
    uint8_t *buffer; /* of kMostBlockOctets */
} Growing;

static bool append(Growing *block, uint32_t category, const uint8_t *octets, uint64_t count) {
    if (block->octets == 0) block->octets = ast_datablock_begin(block->buffer, kMostBlockOctets, category);
    if (block->buffer[0] != category) {
        PyErr_Format(PyExc_ValueError, "a record of category %u in a block of category %u", (unsigned)category,
                     (unsigned)block->buffer[0]);
        return false;
    }
    const uint64_t grown = ast_datablock_append(block->buffer, kMostBlockOctets, octets, count);
    if (grown == 0) {
        PyErr_SetString(PyExc_ValueError, "the block would be longer than 65535 octets");
        return false;
    }
    block->octets = grown;
    return true;
}

static bool append_line(Growing *block, const char *json, size_t chars) {
    uint8_t *const octets = PyMem_Malloc(kMostBlockOctets);
    if (!octets) return PyErr_NoMemory();
    const ast_json_result_t result = ast_datarecord_from_json(octets, kMostBlockOctets - kHeaderOctets, json, chars);
    bool is_appended = false;
    if (result.valid && !result.is_data) {
        is_appended = append(block, result.category, octets, result.size);
    } else {
        char text[200];
        const char *const error = result.valid   ? "has no items"
                                  : result.error ? result.error
                                                 : "is longer than a block";
        PyOS_snprintf(text, sizeof text, "%s%s%s", result.path, *result.path ? " " : "", error);
        raise_error(text, &(ErrorPlace){.offset = AST_OFFSET_NONE, .category = result.category, .reason = "line"});
    }
    PyMem_Free(octets);
    return is_appended;
}

static bool append_object(Growing *block, PyObject *object) {
    if (is_record(object)) {
        const Record *const record = (const Record *)object;
        return append(block, record->block->from.read.category, record->block->octets + record->offset, record->size);
    }
    PyObject *const line = line_of("line", object, NULL);
    const bool is_appended = line && append_line(block, PyBytes_AsString(line), (size_t)PyBytes_Size(line));
    Py_XDECREF(line);
    return is_appended;
}

static bool append_all(Growing *block, PyObject *iterator) {
    PyObject *object;
    bool is_well = true;
    while (is_well && (object = PyIter_Next(iterator))) {
        is_well = append_object(block, object);
        Py_DECREF(object);
    }
    if (is_well && !PyErr_Occurred() && block->octets == 0) PyErr_SetString(PyExc_ValueError, "there are no records");
    return !PyErr_Occurred();
}

static PyObject *make_octets(bool (*fill)(Growing *, PyObject *), PyObject *from) {
    Growing block = {.buffer = PyMem_Malloc(kMostBlockOctets)};
    if (!block.buffer) return PyErr_NoMemory();
    const bool is_filled = fill(&block, from);
    PyObject *const octets =
        is_filled ? PyBytes_FromStringAndSize((const char *)block.buffer, (Py_ssize_t)block.octets) : NULL;
    PyMem_Free(block.buffer);
    return octets;
}

static PyObject *encode(PyObject *module, PyObject *record) {
    (void)module;
    return make_octets(append_object, record);
}

static PyObject *make_block_of(PyObject *module, PyObject *records) {
    (void)module;
    PyObject *const iterator = PyObject_GetIter(records);
    PyObject *const octets = iterator ? make_octets(append_all, iterator) : NULL;
    Py_XDECREF(iterator);
    return octets;
}

/* ---- Replacing ---- */

/* The record of a block, read with the profile of the one before; null, without an exception, where that does not fit.
 */
static PyObject *read_alike(const Record *original, const uint8_t *octets, uint64_t count) {
    typedef struct {
        ast_reader_t reader;
        ast_datablock_t block;
    } Room;
    Room *const room = PyMem_Calloc(1, sizeof *room);
    if (!room) return PyErr_NoMemory();
    room->reader.forced = original->block->from.read.uap;
    ast_recording_block_t block = {.octets = octets, .length = count};
    PyObject *replaced = NULL;
    const bool is_read = ast_reader_decode(&room->reader, &room->block, octets, count, &block.read);
    if (is_read && room->block.record_count == 1 && block.read.uap == room->reader.forced) {
        block.read.ambiguous = original->block->from.read.ambiguous;
        replaced = put_in_place(original, &block, &room->block.records[0]);
    }
    PyMem_Free(room);
    return replaced;
}

PyObject *replace_in_record(Record *record, PyObject *changes) {
    PyObject *const before = record_to_dict(record);
    PyObject *const line = before ? line_of("changed", before, changes) : NULL;
    Growing block = {.buffer = line ? PyMem_Malloc(kMostBlockOctets) : NULL};
    PyObject *replaced = NULL;
    if (line && !block.buffer) PyErr_NoMemory();
    if (block.buffer && append_line(&block, PyBytes_AsString(line), (size_t)PyBytes_Size(line))) {
        replaced = read_alike(record, block.buffer, block.octets);
        if (!replaced && !PyErr_Occurred())
            replaced = read_replaced(PyBytes_AsString(line), (size_t)PyBytes_Size(line), record);
    }
    PyMem_Free(block.buffer);
    Py_XDECREF(before);
    Py_XDECREF(line);
    return replaced;
}

PyMethodDef encode_methods[] = {
    {"encode", encode, METH_O,
     "encode(record)\n--\n\n"
     "The octets of a block that holds a record: {\"category\": 48, \"I010\": {\"SAC\": 25, \"SIC\": 12}, \"I140\": "
     "43201.5},\n"
     "named and nested as to_dict() has it, quantities in published units, rounded to the nearest step."},
    {"block", make_block_of, METH_O,
     "block(records)\n--\n\nThe octets of a block of records, or of dictionaries, all of one category."},
    {NULL, NULL, 0, NULL},
};
