/* Items and fields of a record, by their names and paths. */
#include "record.h"

#include <stdlib.h>
#include <string.h>

/* ---- One item ---- */

enum { kKeyCapacity = 64 };

/* A str of ASCII. False where it is none, or is longer than any name of a member. */
static bool copy_key(char text[kKeyCapacity], PyObject *key) {
    const Py_ssize_t chars = PyUnicode_Check(key) ? PyUnicode_GetLength(key) : kKeyCapacity;
    if (chars >= kKeyCapacity) return false;
    for (Py_ssize_t i = 0; i < chars; ++i) {
        const Py_UCS4 c = PyUnicode_ReadChar(key, i);
        if (c > 0x7F) return false;
        text[i] = (char)c;
    }
    text[chars] = '\0';
    return true;
}

static bool is_digit(char c) { return c >= '0' && c <= '9'; }

/* The number that "I040" stands for; -1 for what is written otherwise. */
static int item_number(const char *key) {
    if (strcmp(key, "REF") == 0) return AST_ITEM_REF;
    if (strcmp(key, "SPF") == 0) return AST_ITEM_SPF;
    if (strcmp(key, "RFS") == 0) return AST_ITEM_RFS;
    if (key[0] != 'I' || strlen(key) != 4) return -1;
    char *end;
    const long number = strtol(key + 1, &end, 10);
    return *end == '\0' && number >= 0 ? (int)number : -1;
}

/* The item of that number, and item 000 before it, which says how some others are read. */
static bool restore_one(const Record *record, int number, ast_datarecord_t *restored) {
    restore_head(record, restored);
    restored->fspec.valid = false; /* it does not announce these */
    const ast_dataitem_type_t first = AST_DATAITEM_TYPE(restored->category, 0);
    for (Py_ssize_t i = 0; i < record->base.ob_size; ++i) {
        const RecordItem *const item = &record->items[i];
        const bool is_asked = item->type == first + (ast_dataitem_type_t)number;
        if (is_asked || item->type == first) restored->items[restored->item_count++] = restore_item(record, item);
        if (is_asked) return true;
    }
    return false;
}

/* A new reference, or null without an exception where it is not found here. */
static PyObject *read_item(Record *record, PyObject *key, int number) {
    ast_datarecord_t restored;
    if (number < 0 || !restore_one(record, number, &restored)) return NULL;
    const size_t kOfLine = 1024, kOfOctet = 256;
    const size_t capacity = kOfLine + kOfOctet * record->size;
    char *const text = borrow_text(capacity);
    if (!text) return NULL;
    ast_datarecord_to_json(text, capacity, &restored, NULL);
    PyObject *const line = read_json(text);
    give_text_back(text);
    PyObject *const value = line ? PyDict_GetItemWithError(line, key) : NULL;
    Py_XINCREF(value);
    Py_XDECREF(line);
    return value;
}

/* The same of any member of the record's dictionary. */
static PyObject *read_member_of(Record *record, PyObject *key) {
    char name[kKeyCapacity];
    if (!copy_key(name, key)) return NULL;
    PyObject *const item = read_item(record, key, item_number(name));
    if (item || PyErr_Occurred()) return item;
    PyObject *const all = record_to_dict(record);
    PyObject *const value = all ? PyDict_GetItemWithError(all, key) : NULL;
    Py_XINCREF(value);
    Py_XDECREF(all);
    return value;
}

PyObject *get_member(PyObject *self, PyObject *key) {
    PyObject *const value = read_member_of((Record *)self, key);
    if (!value && !PyErr_Occurred()) PyErr_SetObject(PyExc_KeyError, key);
    return value;
}

int has_member(PyObject *self, PyObject *key) {
    PyObject *const value = read_member_of((Record *)self, key);
    if (!value) return PyErr_Occurred() ? -1 : 0;
    Py_DECREF(value);
    return 1;
}

PyObject *list_keys(PyObject *self, PyObject *none) {
    (void)none;
    PyObject *const all = record_to_dict((Record *)self);
    PyObject *const names = all ? PyDict_Keys(all) : NULL;
    Py_XDECREF(all);
    return names;
}

PyObject *iterate_keys(PyObject *self) {
    PyObject *const names = list_keys(self, NULL);
    PyObject *const iterator = names ? PyObject_GetIter(names) : NULL;
    Py_XDECREF(names);
    return iterator;
}

/* ---- Paths ---- */

static bool begins_item(const char *path) {
    static const char *const kFields[] = {"REF", "SPF", "RFS"};
    for (size_t i = 0; i < sizeof kFields / sizeof *kFields; ++i)
        if (strncmp(path, kFields[i], 3) == 0 && (path[3] == '/' || path[3] == '\0')) return true;
    return is_digit(path[path[0] == 'I']);
}

/* What stands behind "I048/" or "048/" in front of an item; null for another category. */
static const char *behind_category(const char *path, uint32_t category) {
    const size_t kCategoryChars = 3;
    const char *const digits = path + (path[0] == 'I');
    if (strspn(digits, "0123456789") != kCategoryChars || digits[kCategoryChars] != '/') return path;
    const char *const rest = digits + kCategoryChars + 1;
    if (!begins_item(rest)) return path;
    return strtoul(digits, NULL, 10) == category ? rest : NULL;
}

static PyObject *follow(PyObject *value, const char *path);

/* What the path leads to from every element of a list that has it, as a list. */
static PyObject *follow_each(PyObject *list, const char *path) {
    PyObject *const all = PyList_New(0);
    for (Py_ssize_t i = 0; all && i < PyList_Size(list); ++i) {
        PyObject *const one = follow(PyList_GetItem(list, i), path);
        const bool is_added = one && PyList_Append(all, one) == 0;
        Py_XDECREF(one);
        if (!is_added && PyErr_Occurred()) {
            Py_DECREF(all);
            return NULL;
        }
    }
    return all;
}

static PyObject *follow_index(PyObject *list, const char *path) {
    if (!PyList_Check(list)) return NULL;
    char *end;
    const long index = strtol(path, &end, 10);
    if (*end != ']') return NULL;
    if (end == path) return follow_each(list, end + 1);
    return index >= 0 && index < PyList_Size(list) ? follow(PyList_GetItem(list, index), end + 1) : NULL;
}

/* Along "[1]/MCP_ALT". A new reference, or null, without an exception where there is no such thing. */
static PyObject *follow(PyObject *value, const char *path) {
    if (*path == '[') return follow_index(value, path + 1);
    if (*path == '\0') {
        Py_INCREF(value);
        return value;
    }
    if (*path != '/' || !PyDict_Check(value)) return NULL;
    const size_t chars = strcspn(path + 1, "/[");
    PyObject *const name = PyUnicode_DecodeUTF8(path + 1, (Py_ssize_t)chars, "replace");
    PyObject *const member = name ? PyDict_GetItemWithError(value, name) : NULL;
    Py_XDECREF(name);
    return member ? follow(member, path + 1 + chars) : NULL;
}

/* Likewise. */
static PyObject *value_at(Record *record, const char *path) {
    path = behind_category(path, record->block->from.read.category);
    if (!path) return NULL;
    const size_t chars = strcspn(path, "/[");
    char key[kKeyCapacity];
    if (chars >= sizeof key - 1) return NULL;
    PyOS_snprintf(key, sizeof key, "%s%.*s", is_digit(*path) ? "I" : "", (int)chars, path);
    PyObject *const name = PyUnicode_FromString(key);
    PyObject *const member = name ? read_member_of(record, name) : NULL;
    Py_XDECREF(name);
    PyObject *const value = member ? follow(member, path + chars) : NULL;
    Py_XDECREF(member);
    return value;
}

PyObject *get_by_path(PyObject *self, PyObject *arguments) {
    const char *path;
    PyObject *otherwise = Py_None;
    if (!PyArg_ParseTuple(arguments, "s|O", &path, &otherwise)) return NULL;
    PyObject *const answer = answer_by_name((Record *)self, path);
    if (answer && answer != Py_None) return answer;
    Py_XDECREF(answer);
    if (PyErr_Occurred()) return NULL;
    PyObject *const value = value_at((Record *)self, path);
    if (value || PyErr_Occurred()) return value;
    Py_INCREF(otherwise);
    return otherwise;
}
