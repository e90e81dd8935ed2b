/* What goes wrong: errors, warnings, and reports of what is damaged. */
#include "binding.h"

#include <string.h>

static PyObject *error_class;
static PyObject *warning_class;
static PyTypeObject *report_class;

/* ---- Names ---- */

static const char *const kReasons[] = {
    "note",       "unreadable",  "unfinished",   "fragments",      "dropped",      "truncated", "undissected",
    "stream_gap", "stream_rest", "short_header", "short_length",   "past_end",     "text",      "no_blocks",
    "no_frame",   "line",        "block",        "other_datagram", "other_stream", "trailers",
};

static const char *const kCodes[] = {"none",   "option",     "not_found", "no_access",
                                     "in_use", "connection", "input",     "memory"};

static const char *reason_name(uint32_t reason) {
    return reason < sizeof kReasons / sizeof *kReasons ? kReasons[reason] : "other";
}

/* ---- Errors ---- */

static PyObject *text_or_none(const char *text) {
    if (!text || !*text) Py_RETURN_NONE;
    return PyUnicode_DecodeFSDefault(text);
}

static PyObject *number_or_none(uint64_t number, bool is_known) {
    if (!is_known) Py_RETURN_NONE;
    return PyLong_FromUnsignedLongLong(number);
}

/* Takes the value over. */
static bool set(PyObject *object, const char *name, PyObject *value) {
    const bool is_set = value && PyObject_SetAttrString(object, name, value) == 0;
    Py_XDECREF(value);
    return is_set;
}

void *raise_error(const char *text, const ErrorPlace *place) {
    PyObject *const message = PyUnicode_DecodeFSDefault(text);
    PyObject *const error = message ? PyObject_CallFunctionObjArgs(error_class, message, NULL) : NULL;
    Py_XDECREF(message);
    if (error && set(error, "file", text_or_none(place->file)) &&
        set(error, "offset", number_or_none(place->offset, place->offset != AST_OFFSET_NONE)) &&
        set(error, "category", number_or_none(place->category, place->category != 0)) &&
        set(error, "reason", PyUnicode_FromString(place->reason)))
        PyErr_SetObject(error_class, error);
    Py_XDECREF(error);
    return NULL;
}

void *raise_open_error(const ast_recording_error_t *error, const char *file) {
    const char *const reason = error->code < sizeof kCodes / sizeof *kCodes ? kCodes[error->code] : "other";
    return raise_error(error->text, &(ErrorPlace){.file = file, .offset = AST_OFFSET_NONE, .reason = reason});
}

/* The expression with what is wrong in it underlined, behind the sentence. */
void *raise_filter_error(const ast_filter_error_t *error, const char *expression) {
    char blanks[80], marks[80];
    const size_t at = error->position < sizeof blanks - 1 ? (size_t)error->position : 0;
    const size_t wide = error->length < sizeof marks - 1 ? (size_t)error->length : 0;
    memset(blanks, ' ', at);
    blanks[at] = '\0';
    memset(marks, '^', wide ? wide : 1);
    marks[wide ? wide : 1] = '\0';
    PyObject *const text = error->position < sizeof blanks - 1 && strlen(expression) < sizeof blanks
                               ? PyUnicode_FromFormat("where: %s\n  %s\n  %s%s", error->text, expression, blanks, marks)
                               : PyUnicode_FromFormat("where: %s", error->text);
    PyObject *const octets = text ? PyUnicode_EncodeFSDefault(text) : NULL;
    if (octets) raise_error(PyBytes_AsString(octets), &(ErrorPlace){.offset = AST_OFFSET_NONE, .reason = "where"});
    Py_XDECREF(text);
    Py_XDECREF(octets);
    return NULL;
}

/* ---- Reports ---- */

static PyStructSequence_Field report_fields[] = {
    {"kind", "\"damaged\", \"not supported\", \"not ASTERIX\", \"note\" or \"not readable\"."},
    {"reason", "Why, as a name: \"past_end\", \"block\", \"truncated\"."},
    {"text", "The whole sentence, place included."},
    {"cause", "What reports of the same cause have in common, to count them by."},
    {"file", "The input that it is about, None where it is about several."},
    {"offset", "Of the first octet in its file, datagram or stream; None where there is none."},
    {"packet", "Number of the packet in its capture, from 1; None where there is none."},
    {"category", "Of the block; None where it is about none."},
    {"octets", "That are lost, 0 where that is not known."},
    {"count", "Of what is reported at once, 1 as a rule."},
    {"line", "Of text, from 1; None where it is about none."},
    {"path", "Of the member of that line that is wrong, or None."},
    {"block", "Number of the block that breaks off, or None."},
    {"record", "That breaks off, from 1; those before it were read. None where none does."},
    {"sender", "Address and port, or None."},
    {"receiver", "Address and port, or None."},
    {NULL, NULL},
};
static PyStructSequence_Desc report_form = {"libast.Report", "Something that was not read, or that is worth knowing.",
                                            report_fields, 16};

typedef uint64_t (*ReportWriter)(char *text, uint64_t capacity, const ast_recording_report_t *report);

enum { kReportChars = 1000 };

static PyObject *written(ReportWriter write, const ast_recording_report_t *report) {
    char text[kReportChars];
    write(text, sizeof text, report);
    return PyUnicode_DecodeFSDefault(text);
}

PyObject *make_report(const ast_recording_report_t *report) {
    PyObject *const values[] = {
        PyUnicode_FromString(ast_recording_report_kind_to_str(report->kind)),
        PyUnicode_FromString(reason_name(report->reason)),
        written(ast_recording_report_to_text, report),
        written(ast_recording_report_get_cause, report),
        text_or_none(report->file),
        number_or_none(report->offset, report->offset != AST_OFFSET_NONE),
        number_or_none(report->packet, report->packet != 0),
        number_or_none(report->category, report->category != 0),
        PyLong_FromUnsignedLongLong(report->octets),
        PyLong_FromUnsignedLongLong(report->count),
        number_or_none(report->line, report->line != 0),
        text_or_none(report->path),
        number_or_none(report->block, report->block != 0),
        number_or_none(report->record, report->record != 0),
        make_endpoint(&report->sender),
        make_endpoint(&report->receiver),
    };
    return fill_sequence(report_class, values, sizeof values / sizeof *values);
}

static void write_named(char *text, size_t capacity, const ast_recording_report_t *report) {
    char sentence[kReportChars];
    ast_recording_report_to_text(sentence, sizeof sentence, report);
    PyOS_snprintf(text, capacity, "%s%s%s", report->file, *report->file ? ": " : "", sentence);
}

void *raise_report(const ast_recording_report_t *report) {
    char text[2 * kReportChars];
    write_named(text, sizeof text, report);
    return raise_error(text, &(ErrorPlace){.file = report->file,
                                           .offset = report->offset,
                                           .category = report->category,
                                           .reason = reason_name(report->reason)});
}

bool warn_of(const ast_recording_report_t *report) {
    char text[2 * kReportChars];
    write_named(text, sizeof text, report);
    PyObject *const message = PyUnicode_DecodeFSDefault(text);
    PyObject *const octets = message ? PyUnicode_AsEncodedString(message, "utf-8", "replace") : NULL;
    const bool is_warned = octets && PyErr_WarnEx(warning_class, PyBytes_AsString(octets), 1) == 0;
    Py_XDECREF(message);
    Py_XDECREF(octets);
    return is_warned;
}

/* ---- The module ---- */

static PyObject *make_error_class(void) {
    PyObject *const defaults =
        Py_BuildValue("{sOsOsOsO}", "file", Py_None, "offset", Py_None, "category", Py_None, "reason", Py_None);
    PyObject *const made =
        defaults
            ? PyErr_NewExceptionWithDoc("libast.Error",
                                        "What cannot be opened, read, encoded or sent.\n\n"
                                        "file, offset (in octets) and category say where, None where that is not "
                                        "known; reason says why in\na word, such as \"not_found\", \"past_end\" or "
                                        "\"where\".",
                                        NULL, defaults)
            : NULL;
    Py_XDECREF(defaults);
    return made;
}

bool add_errors(PyObject *module) {
    error_class = make_error_class();
    warning_class = PyErr_NewExceptionWithDoc(
        "libast.DamageWarning", "Something of an input is damaged, and passed over.", PyExc_UserWarning, NULL);
    report_class = PyStructSequence_NewType(&report_form);
    if (!error_class || !warning_class || !report_class) return false;
    return add_object(module, "Error", error_class) && add_object(module, "DamageWarning", warning_class) &&
           add_object(module, "Report", (PyObject *)report_class);
}
