/* Values of the library as objects: what its JSON says, times and endpoints. Dictionaries are made of the JSON itself,
 * so that both say the same, to the last digit. */
#include "binding.h"

#include <stdlib.h>
#include <string.h>

/* ---- Names ---- */

/* The library has some three thousand names; beyond the table, they are made anew. */
enum { kNamePlaces = 8192, kMostNames = 6144, kNameCapacity = 27 };

typedef struct {
    PyObject *object; /* null for a place that is empty */
    uint8_t chars;
    char text[kNameCapacity];
} Name;

static Name *names;
static size_t name_count;

static size_t hash_of(const char *text, size_t chars) {
    uint32_t hash = UINT32_C(2166136261);
    for (size_t i = 0; i < chars; ++i) hash = (hash ^ (uint8_t)text[i]) * UINT32_C(16777619);
    return hash;
}

static Name *place_of_name(const char *text, size_t chars) {
    size_t place = hash_of(text, chars) % kNamePlaces;
    while (names[place].object && (names[place].chars != chars || memcmp(names[place].text, text, chars) != 0))
        place = (place + 1) % kNamePlaces;
    return &names[place];
}

/* A new reference. */
static PyObject *shared_name(const char *text, size_t chars) {
    if (!names && !(names = calloc(kNamePlaces, sizeof *names))) return PyErr_NoMemory();
    Name *const place = chars <= kNameCapacity ? place_of_name(text, chars) : NULL;
    if (place && place->object) {
        Py_INCREF(place->object);
        return place->object;
    }
    PyObject *made = PyUnicode_FromStringAndSize(text, (Py_ssize_t)chars);
    if (!made || !place || name_count == kMostNames) return made;
    PyUnicode_InternInPlace(&made);
    Py_INCREF(made);
    place->object = made;
    place->chars = (uint8_t)chars;
    memcpy(place->text, text, chars);
    ++name_count;
    return made;
}

/* ---- JSON ---- */

/* The text is the library's own: it is whole, without blanks, and nests no deeper than its records do. */
typedef struct {
    const char *at;
} Reader;

static PyObject *read_value(Reader *reader);

static bool is_digit(char c) { return c >= '0' && c <= '9'; }

/* Numbers have at most 17 digits, 2^53 at most where there is a point; so whole numbers and powers of ten are exact,
 * and the quotient is the double that is nearest. */
static PyObject *read_number(Reader *reader) {
    static const double kTens[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const uint64_t kMostExact = UINT64_C(1) << 53;
    const char *const begin = reader->at;
    const char *at = begin + (*begin == '-');
    uint64_t digits = 0;
    for (; is_digit(*at); ++at) digits = digits * 10 + (uint64_t)(*at - '0');
    size_t decimals = 0;
    if (*at == '.')
        for (++at; is_digit(*at); ++at, ++decimals) digits = digits * 10 + (uint64_t)(*at - '0');
    reader->at = at;
    const bool is_long = at - begin > 18;
    if (*at == 'e' || *at == 'E' || (decimals != 0 && (is_long || digits > kMostExact))) {
        char *end;
        const double number = PyOS_string_to_double(begin, &end, NULL);
        reader->at = end;
        return number == -1.0 && PyErr_Occurred() ? NULL : PyFloat_FromDouble(number);
    }
    if (decimals != 0) {
        const double number = (double)digits / kTens[decimals];
        return PyFloat_FromDouble(*begin == '-' ? -number : number);
    }
    if (is_long) {
        char *end;
        PyObject *const number = PyLong_FromString(begin, &end, 10);
        return number;
    }
    return PyLong_FromLongLong(*begin == '-' ? -(long long)digits : (long long)digits);
}

static unsigned hex_value(char c) { return (unsigned)(is_digit(c) ? c - '0' : (c | ' ') - 'a' + 10); }

/* What is escaped are control characters, quotes and bars; all else is UTF-8. */
static PyObject *read_escaped(Reader *reader, size_t most_chars) {
    char *const text = PyMem_Malloc(most_chars + 1);
    if (!text) return PyErr_NoMemory();
    char *out = text;
    const char *at = reader->at;
    for (; *at != '"'; ++at) {
        if (*at != '\\') {
            *out++ = *at;
        } else if (*++at == 'u') {
            *out++ = (char)(hex_value(at[3]) << 4 | hex_value(at[4]));
            at += 4;
        } else {
            *out++ = *at;
        }
    }
    reader->at = at + 1;
    PyObject *const made = PyUnicode_DecodeUTF8(text, out - text, "replace");
    PyMem_Free(text);
    return made;
}

static PyObject *read_string(Reader *reader, bool is_name) {
    const char *const begin = ++reader->at;
    const char *at = begin;
    while (*at != '"' && *at != '\\') ++at;
    if (*at == '\\') {
        while (*at != '"') at += *at == '\\' ? 2 : 1;
        return read_escaped(reader, (size_t)(at - begin));
    }
    reader->at = at + 1;
    const size_t chars = (size_t)(at - begin);
    return is_name ? shared_name(begin, chars) : PyUnicode_DecodeUTF8(begin, (Py_ssize_t)chars, "replace");
}

static bool read_member(Reader *reader, PyObject *object) {
    PyObject *const name = read_string(reader, true);
    if (!name) return false;
    ++reader->at; /* the colon */
    PyObject *const value = read_value(reader);
    const bool is_set = value && PyDict_SetItem(object, name, value) == 0;
    Py_DECREF(name);
    Py_XDECREF(value);
    return is_set;
}

static bool read_element(Reader *reader, PyObject *list) {
    PyObject *const value = read_value(reader);
    const bool is_set = value && PyList_Append(list, value) == 0;
    Py_XDECREF(value);
    return is_set;
}

static PyObject *read_all(Reader *reader, PyObject *into, char bracket, bool (*read_one)(Reader *, PyObject *)) {
    if (!into) return NULL;
    ++reader->at;
    while (*reader->at != bracket) {
        if (!read_one(reader, into)) {
            Py_DECREF(into);
            return NULL;
        }
        if (*reader->at == ',') ++reader->at;
    }
    ++reader->at;
    return into;
}

static PyObject *read_value(Reader *reader) {
    switch (*reader->at) {
    case '{':
        return read_all(reader, PyDict_New(), '}', read_member);
    case '[':
        return read_all(reader, PyList_New(0), ']', read_element);
    case '"':
        return read_string(reader, false);
    case 't': /* no member is ever false */
        reader->at += strlen("true");
        return PyBool_FromLong(true);
    default:
        return read_number(reader);
    }
}

PyObject *read_json(const char *text) {
    Reader reader = {text};
    return read_value(&reader);
}

/* ---- Room for texts ---- */

/* One is kept, unless it is a large one; whoever asks while it is lent, as a destructor may, gets another. */
enum { kKeptCapacity = 1 << 18 };

static struct {
    char *text;
    bool is_lent;
} kept;

char *borrow_text(size_t capacity) {
    if (!kept.is_lent && capacity <= kKeptCapacity) {
        if (!kept.text) kept.text = PyMem_Malloc(kKeptCapacity);
        kept.is_lent = kept.text != NULL;
        if (kept.text) return kept.text;
    }
    char *const text = PyMem_Malloc(capacity);
    if (!text) PyErr_NoMemory();
    return text;
}

void give_text_back(char *text) {
    if (text == kept.text)
        kept.is_lent = false;
    else
        PyMem_Free(text);
}

/* ---- Times and endpoints ---- */

static PyObject *epoch;      /* 1970-01-01 in UTC */
static PyObject *time_delta; /* the class */

static bool find_datetime(void) {
    if (epoch) return true;
    PyObject *const module = PyImport_ImportModule("datetime");
    if (!module) return false;
    PyObject *const zone = PyObject_GetAttrString(module, "timezone");
    PyObject *const utc = zone ? PyObject_GetAttrString(zone, "utc") : NULL;
    PyObject *const class = PyObject_GetAttrString(module, "datetime");
    time_delta = PyObject_GetAttrString(module, "timedelta");
    if (utc && class && time_delta) epoch = PyObject_CallFunction(class, "iiiiiiiO", 1970, 1, 1, 0, 0, 0, 0, utc);
    Py_XDECREF(zone);
    Py_XDECREF(utc);
    Py_XDECREF(class);
    Py_DECREF(module);
    return epoch != NULL;
}

PyObject *make_datetime(int64_t time_ns) {
    const int64_t kNanosecondsPerMicrosecond = 1000;
    const int64_t kMicrosecondsPerSecond = 1000000;
    const int64_t kSecondsPerDay = 86400;
    if (time_ns == AST_TIME_UNKNOWN) Py_RETURN_NONE;
    if (!find_datetime()) return NULL;
    int64_t us = time_ns / kNanosecondsPerMicrosecond - (time_ns % kNanosecondsPerMicrosecond < 0);
    int64_t s = us / kMicrosecondsPerSecond - (us % kMicrosecondsPerSecond < 0);
    us -= s * kMicrosecondsPerSecond;
    const int64_t days = s / kSecondsPerDay - (s % kSecondsPerDay < 0);
    s -= days * kSecondsPerDay;
    PyObject *const since = PyObject_CallFunction(time_delta, "LLL", (long long)days, (long long)s, (long long)us);
    PyObject *const made = since ? PyNumber_Add(epoch, since) : NULL;
    Py_XDECREF(since);
    return made;
}

PyObject *make_endpoint(const ast_endpoint_t *endpoint) {
    if (endpoint->family == 0) Py_RETURN_NONE;
    char text[AST_ENDPOINT_TEXT_OCTETS];
    ast_endpoint_to_text(text, sizeof text, endpoint);
    return PyUnicode_FromString(text);
}
