/* Records: nothing is decoded that is not asked for. Each owns its octets, by way of the block that it came in. */
#include "record.h"

#include <stddef.h>
#include <string.h>

/* ---- Blocks ---- */

static PyTypeObject *block_type;
PyTypeObject *record_type;

Block *make_block(const ast_recording_block_t *from, PyObject *file, Sites *sites, bool names_file) {
    Block *const block = PyObject_NewVar(Block, block_type, (Py_ssize_t)from->length);
    if (!block) return NULL;
    block->from = *from;
    block->from.octets = block->octets;
    block->from.file = NULL;
    block->file = file;
    Py_XINCREF(file);
    block->sites = sites;
    Py_XINCREF(sites);
    block->names_file = names_file;
    memcpy(block->octets, from->octets, (size_t)from->length);
    return block;
}

static void free_block(PyObject *self) {
    Block *const block = (Block *)self;
    Py_CLEAR(block->file);
    Py_CLEAR(block->sites);
    free_instance(self);
}

static PyType_Slot block_slots[] = {{Py_tp_new, SLOT(refuse_new)}, {Py_tp_dealloc, SLOT(free_block)}, {0, NULL}};
static PyType_Spec block_spec = {.name = "libast._Block",
                                 .basicsize = offsetof(Block, octets),
                                 .itemsize = 1,
                                 .flags = Py_TPFLAGS_DEFAULT,
                                 .slots = block_slots};

/* ---- Making and restoring ---- */

PyObject *make_record(Block *block, const ast_datarecord_t *from, const uint8_t *octets, uint64_t index) {
    Record *const record = PyObject_NewVar(Record, record_type, (Py_ssize_t)from->item_count);
    if (!record) return NULL;
    Py_INCREF(block);
    record->block = block;
    record->answers = NULL;
    record->uap = from->uap;
    record->number = (uint32_t)index + 1;
    record->size = (uint32_t)from->size;
    record->offset = (uint32_t)(from->data - octets);
    record->fspec_octets = (uint16_t)from->fspec.length;
    record->fspec_items = (uint16_t)from->fspec.item_count;
    for (uint64_t i = 0; i < from->item_count; ++i) {
        const ast_dataitem_t *const item = &from->items[i];
        record->items[i] = (RecordItem){.type = item->type,
                                        .offset = (uint16_t)(item->data - from->data),
                                        .size = (uint16_t)item->size,
                                        .following = item->following};
    }
    return (PyObject *)record;
}

static void free_record(PyObject *self) {
    Record *const record = (Record *)self;
    PyMem_Free(record->answers);
    Py_DECREF(record->block);
    free_instance(self);
}

bool is_record(PyObject *object) { return Py_TYPE(object) == record_type; }

ast_dataitem_t restore_item(const Record *record, const RecordItem *item) {
    return (ast_dataitem_t){.data = record->block->octets + record->offset + item->offset,
                            .size = item->size,
                            .type = item->type,
                            .valid = true,
                            .following = item->following};
}

void restore_head(const Record *record, ast_datarecord_t *restored) {
    const uint64_t kFrnsPerOctet = 7;
    const uint8_t *const octets = record->block->octets + record->offset;
    restored->data = octets;
    restored->size = record->size;
    restored->category = record->block->from.read.category;
    restored->uap = record->uap;
    restored->fspec = (ast_fspec_t){.data = octets,
                                    .length = record->fspec_octets,
                                    .frn_count = kFrnsPerOctet * record->fspec_octets,
                                    .item_count = record->fspec_items,
                                    .valid = true};
    restored->item_count = 0;
    restored->valid = true;
}

void restore_record(const Record *record, ast_datarecord_t *restored) {
    restore_head(record, restored);
    restored->item_count = (uint64_t)record->base.ob_size;
    for (uint64_t i = 0; i < restored->item_count; ++i) restored->items[i] = restore_item(record, &record->items[i]);
}

/* ---- What is known beside the octets ---- */

static const ast_recording_block_t *from_of(PyObject *self) { return &((const Record *)self)->block->from; }

static PyObject *make_count(uint64_t count) {
    if (count == 0) Py_RETURN_NONE;
    return PyLong_FromUnsignedLongLong(count);
}

static PyObject *text_or_none(const char *text) {
    if (!text || !*text) Py_RETURN_NONE;
    return PyUnicode_FromString(text);
}

static PyObject *get_category(PyObject *self, void *closure) {
    (void)closure;
    return PyLong_FromUnsignedLong(from_of(self)->read.category);
}
static PyObject *get_edition(PyObject *self, void *closure) {
    (void)closure;
    return text_or_none(from_of(self)->read.edition);
}
static bool is_same_profile(const ast_uap_t *one, const ast_uap_t *other) {
    return one->max_frn == other->max_frn && one->get_dataitem == other->get_dataitem;
}

/* Of the record: those of category 001 have one each. */
static PyObject *get_profile(PyObject *self, void *closure) {
    (void)closure;
    const Record *const record = (const Record *)self;
    for (uint64_t i = 0; i < ast_uap_get_number(); ++i) {
        const ast_uap_info_t info = ast_uap_get_info(i);
        if (is_same_profile(info.uap, &record->uap)) return PyUnicode_FromString(info.name);
    }
    return text_or_none(from_of(self)->read.profile);
}
static PyObject *get_octets(PyObject *self, void *closure) {
    (void)closure;
    const Record *const record = (const Record *)self;
    return PyBytes_FromStringAndSize((const char *)record->block->octets + record->offset, (Py_ssize_t)record->size);
}
static PyObject *get_block(PyObject *self, void *closure) {
    (void)closure;
    return make_count(from_of(self)->number);
}
static PyObject *get_number(PyObject *self, void *closure) {
    (void)closure;
    return PyLong_FromUnsignedLong(((const Record *)self)->number);
}
static PyObject *get_packet(PyObject *self, void *closure) {
    (void)closure;
    return make_count(from_of(self)->packet);
}
static PyObject *get_datagram(PyObject *self, void *closure) {
    (void)closure;
    return make_count(from_of(self)->datagram);
}
static PyObject *get_offset(PyObject *self, void *closure) {
    (void)closure;
    const uint64_t offset = from_of(self)->offset;
    if (offset == AST_OFFSET_NONE) Py_RETURN_NONE;
    return PyLong_FromUnsignedLongLong(offset);
}
static PyObject *get_file(PyObject *self, void *closure) {
    (void)closure;
    PyObject *const file = ((const Record *)self)->block->file;
    if (!file) Py_RETURN_NONE;
    Py_INCREF(file);
    return file;
}
static PyObject *get_received(PyObject *self, void *closure) {
    (void)closure;
    return make_datetime(from_of(self)->time_ns);
}
static PyObject *get_received_ns(PyObject *self, void *closure) {
    (void)closure;
    if (from_of(self)->time_ns == AST_TIME_UNKNOWN) Py_RETURN_NONE;
    return PyLong_FromLongLong(from_of(self)->time_ns);
}
static PyObject *get_sender(PyObject *self, void *closure) {
    (void)closure;
    return make_endpoint(&from_of(self)->sender);
}
static PyObject *get_receiver(PyObject *self, void *closure) {
    (void)closure;
    return make_endpoint(&from_of(self)->receiver);
}

static const PyGetSetDef kPlaces[] = {
    {"category", get_category, NULL, "0 to 255.", NULL},
    {"edition", get_edition, NULL, "The published edition that it was read with: \"2.4\".", NULL},
    {"profile", get_profile, NULL, "The layout that it was read with: \"standard\", \"cat021-2.4\".", NULL},
    {"octets", get_octets, NULL, "FSPEC and items as bytes, without the header of the block.", NULL},
    {"block", get_block, NULL, "Number of the block in its input, from 1.", NULL},
    {"number", get_number, NULL, "Number of the record in its block, from 1.", NULL},
    {"packet", get_packet, NULL, "Number of the packet in its capture, or of the datagram, from 1.", NULL},
    {"datagram", get_datagram, NULL, "Number of the datagram that the block came in, in its input, from 1.", NULL},
    {"offset", get_offset, NULL, "Of the block in its file or datagram, in octets.", NULL},
    {"file", get_file, NULL, "The input, as it was given.", NULL},
    {"received", get_received, NULL, "When it was received, a datetime in UTC, to microseconds.", NULL},
    {"received_ns", get_received_ns, NULL, "The same in nanoseconds since 1970.", NULL},
    {"sender", get_sender, NULL, "Address and port that it came from: \"10.0.0.1:8600\".", NULL},
    {"receiver", get_receiver, NULL, "Address and port that it went to.", NULL},
};

enum { kPlaceRows = sizeof kPlaces / sizeof *kPlaces };

/* Both, and the end of the list; filled in when the type is made. */
static PyGetSetDef record_attributes[kPlaceRows + kAnswerAttributes + 1];

static void fill_attributes(void) {
    memcpy(record_attributes, kPlaces, sizeof kPlaces);
    fill_answer_attributes(record_attributes + kPlaceRows);
}

/* ---- The type ---- */

static PyObject *represent(PyObject *self) {
    const Record *const record = (const Record *)self;
    return PyUnicode_FromFormat("<libast.Record: category %u, record %u of block %llu, %u octets>",
                                (unsigned)record->block->from.read.category, (unsigned)record->number,
                                (unsigned long long)record->block->from.number, (unsigned)record->size);
}

static PyObject *replace(PyObject *self, PyObject *changes) { return replace_in_record((Record *)self, changes); }

static PyMethodDef record_methods[] = {
    {"to_dict", WITH_KEYWORDS(to_dict), METH_VARARGS | METH_KEYWORDS,
     "to_dict($self, *, texts=False)\n--\n\n"
     "All values of the record, nested and named as in the JSON of the project, in published units.\n"
     "With texts, codes are {\"value\": 5, \"text\": \"Single ModeS Roll-Call\"} where they have one."},
    {"to_json", WITH_KEYWORDS(to_json), METH_VARARGS | METH_KEYWORDS,
     "to_json($self, *, texts=False)\n--\n\nThe same as a line of JSON, without a line feed, as `astdump --json` "
     "writes it."},
    {"keys", list_keys, METH_NOARGS, "keys($self)\n--\n\nThe keys of to_dict()."},
    {"replace", replace, METH_O,
     "replace($self, changes)\n--\n\n"
     "A new record with other values: {\"I010/SIC\": 99, \"I240\": \"DLH4AB\", \"I250\": None}, by path. None leaves "
     "an\n"
     "item out. All else stays, octet for octet."},
    {"get", get_by_path, METH_VARARGS,
     "get($self, path, default=None)\n--\n\n"
     "What stands at a path such as \"I048/040/RHO\", \"I040/RHO\" or \"I250[0]/MCP_ALT\"; the default where there is "
     "none."},
    {NULL, NULL, 0, NULL},
};

static PyType_Slot record_slots[] = {
    {Py_tp_doc,
     (void *)(uintptr_t) "A record: a target report, a track, a service message.\n\n"
                         "Nothing is decoded that is not asked for. Attributes answer what most people ask of "
                         "records of whatever\ncategory, None where this one does not tell. record[\"I040\"] is an "
                         "item as to_dict() has it."},
    {Py_tp_new, SLOT(refuse_new)},
    {Py_tp_dealloc, SLOT(free_record)},
    {Py_tp_repr, SLOT(represent)},
    {Py_tp_iter, SLOT(iterate_keys)},
    {Py_tp_getset, record_attributes},
    {Py_tp_methods, record_methods},
    {Py_mp_subscript, SLOT(get_member)},
    {Py_sq_contains, SLOT(has_member)},
    {0, NULL},
};
static PyType_Spec record_spec = {.name = "libast.Record",
                                  .basicsize = offsetof(Record, items),
                                  .itemsize = sizeof(RecordItem),
                                  .flags = Py_TPFLAGS_DEFAULT,
                                  .slots = record_slots};

bool add_record(PyObject *module) {
    fill_attributes();
    block_type = add_type(module, "_Block", &block_spec);
    record_type = block_type ? add_type(module, "Record", &record_spec) : NULL;
    return record_type != NULL;
}
