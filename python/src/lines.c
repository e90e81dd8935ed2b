/* Records as lines of JSON, and as the dictionaries that these stand for. */
#include "record.h"

#include <string.h>

enum { kTimeChars = AST_TIME_TEXT_OCTETS + 1 };

/* What a line says of where its record came from, as astdump has it. */
typedef struct {
    ast_json_line_t line;
    char time[kTimeChars];
    char sender[AST_ENDPOINT_TEXT_OCTETS];
    char receiver[AST_ENDPOINT_TEXT_OCTETS];
    PyObject *file; /* as UTF-8, or null */
} Line;

static void write_iso_time(char *text, int64_t time_ns) {
    const size_t kDateChars = 10;
    const uint64_t chars = ast_time_to_text(text, AST_TIME_TEXT_OCTETS, time_ns);
    if (chars <= kDateChars || text[kDateChars] != ' ') return; /* in no calendar */
    text[kDateChars] = 'T';
    memcpy(text + chars, "Z", sizeof "Z");
}

static bool fill_line(Line *line, const Record *record, bool texts) {
    const ast_recording_block_t *const from = &record->block->from;
    *line = (Line){.line = {.block = from->number,
                            .record = record->number,
                            .has_offset = from->packet == 0 && from->offset != AST_OFFSET_NONE,
                            .offset = from->offset,
                            .ambiguous = from->read.ambiguous,
                            .texts = texts}};
    if (from->time_ns != AST_TIME_UNKNOWN) {
        write_iso_time(line->time, from->time_ns);
        line->line.time = line->time;
    }
    if (from->sender.family != 0 || from->receiver.family != 0) {
        ast_endpoint_to_text(line->sender, sizeof line->sender, &from->sender);
        ast_endpoint_to_text(line->receiver, sizeof line->receiver, &from->receiver);
        line->line.source = line->sender;
        line->line.destination = line->receiver;
    }
    if (!record->block->names_file || !record->block->file) return true;
    line->file = PyUnicode_AsEncodedString(record->block->file, "utf-8", "replace");
    line->line.file = line->file ? PyBytes_AsString(line->file) : NULL;
    return line->file != NULL;
}

/* As much as the library is fast with: 1 KB, 256 characters for each octet, and six for each of the line. */
static size_t ample_room(uint64_t octets, const Line *line) {
    const size_t kOfLine = 1024 + 6 * (sizeof line->time + sizeof line->sender + sizeof line->receiver);
    const size_t kOfOctet = 256, kOfNameChar = 6;
    const size_t name_chars = line->file ? (size_t)PyBytes_Size(line->file) : 0;
    return kOfLine + kOfOctet * (size_t)octets + kOfNameChar * name_chars;
}

static const char kImplausible[] = "{\"implausible\":true,";
enum { kImplausibleChars = sizeof kImplausible - 1 };

typedef struct {
    char *room; /* to be given back; null where there is no memory */
    const char *text;
} Json;

/* What cannot be is said first. The library's line stands behind the room for that, whose last character is the bracket
 * of the line. */
static Json write_json(const Record *record, bool texts) {
    Json json = {NULL, NULL};
    Line line;
    if (!fill_line(&line, record, texts)) return json;
    const size_t capacity = ample_room(record->size, &line);
    json.room = borrow_text(capacity + kImplausibleChars);
    if (json.room) {
        char *const text = json.room + kImplausibleChars - 1;
        ast_datarecord_t restored;
        restore_record(record, &restored);
        ast_datarecord_to_json(text, capacity, &restored, &line.line);
        const bool is_implausible = ast_datarecord_is_implausible(&restored);
        if (is_implausible) memcpy(json.room, kImplausible, kImplausibleChars);
        json.text = is_implausible ? json.room : text;
    }
    Py_XDECREF(line.file);
    return json;
}

PyObject *record_to_dict(Record *record) {
    const Json json = write_json(record, false);
    if (!json.text) return NULL;
    PyObject *const made = read_json(json.text);
    give_text_back(json.room);
    return made;
}

static PyObject *made_of_json(PyObject *self, PyObject *arguments, PyObject *keywords,
                              PyObject *(*make)(const char *text)) {
    static char *names[] = {"texts", NULL};
    int texts = 0;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "|$p", names, &texts)) return NULL;
    const Json json = write_json((Record *)self, texts != 0);
    if (!json.text) return NULL;
    PyObject *const made = make(json.text);
    give_text_back(json.room);
    return made;
}

static PyObject *make_json_text(const char *text) {
    return PyUnicode_DecodeUTF8(text, (Py_ssize_t)strlen(text), "replace");
}

PyObject *to_dict(PyObject *self, PyObject *arguments, PyObject *keywords) {
    return made_of_json(self, arguments, keywords, read_json);
}

PyObject *to_json(PyObject *self, PyObject *arguments, PyObject *keywords) {
    return made_of_json(self, arguments, keywords, make_json_text);
}
