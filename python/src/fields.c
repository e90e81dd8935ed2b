/* Fields: what the category documents define. */
#include "binding.h"

#include <string.h>

static PyTypeObject *field_class;

static PyStructSequence_Field field_fields[] = {
    {"path", "\"I048/040/RHO\"; the elements of a list are \"[]\"."},
    {"title", "In the words of the document."},
    {"kind",
     "\"raw\", \"code\", \"unsigned\", \"signed\", \"octal\", \"characters\", \"register\", \"octets\", or \"group\"."},
    {"bits", "How many; None where that varies."},
    {"unit", "Of a quantity: \"NM\", \"FL\"; \"\" where there is none."},
    {"step", "Of a quantity, what one unit of the field is; None for what is none."},
    {"texts", "Of codes, a dict."},
    {NULL, NULL},
};
static PyStructSequence_Desc field_form = {"libast.Field", "A field as the document of its category describes it.",
                                           field_fields, 7};

static const char *kind_name(uint32_t kind) {
    static const char *const kNames[] = {"raw",        "code",       "unsigned", "signed", "octal",
                                         "characters", "characters", "register", "octets"};
    return kind < sizeof kNames / sizeof *kNames ? kNames[kind] : "group";
}

/* Of the codes that a field of so few bits has. */
static PyObject *texts_of(const ast_field_t *field) {
    enum { kMostBits = 8 };
    PyObject *const texts = PyDict_New();
    if (!texts || field->kind != AST_FIELD_CODE) return texts;
    const uint64_t codes = UINT64_C(1) << (field->bits < kMostBits ? field->bits : kMostBits);
    for (uint64_t code = 0; code < codes; ++code) {
        char text[500];
        ast_field_get_text(text, sizeof text, field, code);
        if (!*text) continue;
        PyObject *const key = PyLong_FromUnsignedLongLong(code);
        PyObject *const value = PyUnicode_DecodeUTF8(text, (Py_ssize_t)strlen(text), "replace");
        const bool is_set = key && value && PyDict_SetItem(texts, key, value) == 0;
        Py_XDECREF(key);
        Py_XDECREF(value);
        if (!is_set) {
            Py_DECREF(texts);
            return NULL;
        }
    }
    return texts;
}

static PyObject *step_of(const ast_field_t *field) {
    if (field->numerator == 0) Py_RETURN_NONE;
    return PyFloat_FromDouble((double)field->numerator / (double)field->denominator);
}

static PyObject *bits_of(const ast_field_t *field) {
    if (field->bits == 0) Py_RETURN_NONE;
    return PyLong_FromUnsignedLong(field->bits);
}

static PyObject *make_field(const ast_field_t *field) {
    PyObject *const values[] = {
        PyUnicode_FromString(field->path),
        PyUnicode_FromString(field->title),
        PyUnicode_FromString(kind_name(field->kind)),
        bits_of(field),
        PyUnicode_FromString(field->unit),
        step_of(field),
        texts_of(field),
    };
    return fill_sequence(field_class, values, sizeof values / sizeof *values);
}

/* Called for every field; stops at the first exception. */
static void collect(void *context, const ast_field_t *field) {
    PyObject *const all = context;
    if (PyErr_Occurred() || field->kind == AST_FIELD_SPARE) return;
    PyObject *const made = make_field(field);
    if (made) PyList_Append(all, made);
    Py_XDECREF(made);
}

static PyObject *list_fields(PyObject *module, PyObject *category) {
    (void)module;
    const unsigned long number = PyLong_AsUnsignedLong(category);
    if (PyErr_Occurred()) return NULL;
    PyObject *const all = PyList_New(0);
    if (!all || number > UINT8_MAX) return all;
    const uint32_t most = ast_uap_max_frn_published((uint32_t)number);
    for (uint32_t frn = 1; frn <= most && !PyErr_Occurred(); ++frn) {
        const ast_dataitem_type_t type = ast_uap_get_dataitem_published((uint32_t)number, frn);
        if (type != AST_DATAITEM_NONE) ast_dataitem_describe(type, AST_UAP_PUBLISHED, collect, all);
    }
    if (!PyErr_Occurred()) return all;
    Py_DECREF(all);
    return NULL;
}

PyMethodDef field_methods[] = {
    {"_fields_of", list_fields, METH_O, "The fields of a category."},
    {NULL, NULL, 0, NULL},
};

bool add_field(PyObject *module) {
    field_class = PyStructSequence_NewType(&field_form);
    return field_class && add_object(module, "Field", (PyObject *)field_class);
}
