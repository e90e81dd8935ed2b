/* What most people ask of a record, whatever its category: worked out when it is asked for, and kept. */
#include "record.h"

#include <stddef.h>
#include <string.h>

static const ast_answers_t *answers_of(Record *record) {
    if (record->answers) return record->answers;
    record->answers = PyMem_Malloc(sizeof *record->answers);
    if (!record->answers) {
        PyErr_NoMemory();
        return NULL;
    }
    const int64_t time_ns = record->block->from.time_ns;
    const ast_answer_context_t context = {.has_reception = time_ns != AST_TIME_UNKNOWN, .reception_ns = time_ns};
    ast_datarecord_t restored;
    restore_record(record, &restored);
    ast_datarecord_get_answers(&restored, &context, record->answers);
    if (record->block->sites) ast_sites_locate(&record->block->sites->table, record->answers);
    return record->answers;
}

typedef PyObject *(*AnswerMaker)(const void *member);

static PyObject *make_float(const void *member) { return PyFloat_FromDouble(*(const double *)member); }
static PyObject *make_int(const void *member) { return PyLong_FromUnsignedLong(*(const uint32_t *)member); }
static PyObject *make_bool(const void *member) { return PyBool_FromLong(*(const bool *)member); }
static PyObject *make_text(const void *member) { return PyUnicode_FromString(member); }
static PyObject *make_instant(const void *member) { return make_datetime(*(const int64_t *)member); }
static PyObject *make_nanoseconds(const void *member) { return PyLong_FromLongLong(*(const int64_t *)member); }
static PyObject *make_message(const void *member) {
    return PyUnicode_FromString(ast_message_to_str(*(const uint32_t *)member));
}
static PyObject *make_squawk(const void *member) {
    char text[12];
    PyOS_snprintf(text, sizeof text, "%04o", (unsigned)*(const uint32_t *)member);
    return PyUnicode_FromString(text);
}
static PyObject *make_address(const void *member) {
    char text[12];
    PyOS_snprintf(text, sizeof text, "%06X", (unsigned)*(const uint32_t *)member);
    return PyUnicode_FromString(text);
}

typedef struct {
    uint64_t answer;
    size_t offset;
    AnswerMaker make;
    const char *name;
    const char *what;
} AnswerRow;

#define ROW(answer, member, make, name, what)                                                                          \
    { AST_ANSWER_##answer, offsetof(ast_answers_t, member), make, name, what }

static const AnswerRow kAnswers[] = {
    ROW(TIMESTAMP, timestamp_ns, make_instant, "timestamp",
        "When it was measured, a datetime in UTC: its time of day on the day that brings it closest to reception."),
    ROW(TIMESTAMP, timestamp_ns, make_nanoseconds, "timestamp_ns", "The same in nanoseconds since 1970."),
    ROW(TIME, time_of_day_s, make_float, "time", "Its time of day in seconds since midnight, UTC."),
    ROW(SAC, sac, make_int, "sac", "System area code of the data source."),
    ROW(SIC, sic, make_int, "sic", "System identification code of the data source."),
    ROW(TYPE, type, make_message, "type", "The kind of message: \"plot\", \"track\", \"north marker\"."),
    ROW(TRACK_NUMBER, track_number, make_int, "track_number", "Number of the track."),
    ROW(SQUAWK, squawk, make_squawk, "squawk", "Mode 3/A code, four octal digits: \"7700\"."),
    ROW(CALLSIGN, callsign, make_text, "callsign", "Identification, without blanks at its end: \"DLH4AB\"."),
    ROW(ICAO24, icao24, make_address, "icao24", "Aircraft address, six hexadecimal digits: \"3C4A12\"."),
    ROW(FL, fl, make_float, "fl", "Flight level, hundreds of feet at standard pressure."),
    ROW(ALTITUDE, altitude_ft, make_float, "altitude_ft", "Geometric altitude in feet."),
    ROW(SELECTED_ALTITUDE, selected_altitude_ft, make_float, "selected_altitude_ft",
        "Altitude that the crew has selected, in feet."),
    ROW(LATITUDE, latitude_deg, make_float, "latitude", "Of the target in degrees, WGS-84, north positive."),
    ROW(LONGITUDE, longitude_deg, make_float, "longitude", "Of the target in degrees, WGS-84, east positive."),
    ROW(RANGE, range_nm, make_float, "range_nm", "Slant range from the sensor in nautical miles."),
    ROW(AZIMUTH, azimuth_deg, make_float, "azimuth_deg", "From the sensor, in degrees clockwise from north."),
    ROW(X, x_nm, make_float, "x_nm", "To the east in the plane of the sensor or system, in nautical miles."),
    ROW(Y, y_nm, make_float, "y_nm", "To the north in the plane of the sensor or system, in nautical miles."),
    ROW(GROUNDSPEED, groundspeed_kt, make_float, "groundspeed_kt", "Speed over ground in knots."),
    ROW(TRACK, track_deg, make_float, "track_deg", "Where it moves to, in degrees clockwise from north."),
    ROW(MAGNETIC_HEADING, magnetic_heading_deg, make_float, "magnetic_heading_deg",
        "Where it points to, in degrees clockwise from magnetic north."),
    ROW(TRUE_HEADING, true_heading_deg, make_float, "true_heading_deg",
        "Where it points to, in degrees clockwise from north."),
    ROW(VERTICAL_RATE, vertical_rate_ftmin, make_float, "vertical_rate_ftmin",
        "In feet per minute, positive when climbing."),
    ROW(ROLL, roll_deg, make_float, "roll_deg", "Roll angle in degrees, positive with the right wing down."),
    ROW(TRUE_AIRSPEED, true_airspeed_kt, make_float, "true_airspeed_kt", "True airspeed in knots."),
    ROW(INDICATED_AIRSPEED, indicated_airspeed_kt, make_float, "indicated_airspeed_kt", "Indicated airspeed in knots."),
    ROW(MACH, mach, make_float, "mach", "Mach number."),
    ROW(SQUAWK_VALIDATED, squawk_validated, make_bool, "squawk_validated", "The code was received alike twice."),
    ROW(SQUAWK_GARBLED, squawk_garbled, make_bool, "squawk_garbled", "Replies overlapped."),
    ROW(SQUAWK_SMOOTHED, squawk_smoothed, make_bool, "squawk_smoothed", "The code was not extracted in the last scan."),
    ROW(SQUAWK_CHANGED, squawk_changed, make_bool, "squawk_changed", "The code is another one than before."),
    ROW(SPI, spi, make_bool, "spi", "Special position identification."),
    ROW(EMERGENCY, emergency, make_bool, "emergency", "A field says so, or the code is 7500, 7600 or 7700."),
    ROW(ON_GROUND, on_ground, make_bool, "on_ground", "It is on the ground."),
    ROW(SIMULATED, simulated, make_bool, "simulated", "A simulated target."),
    ROW(TEST, test, make_bool, "test", "A test target."),
    ROW(COASTED, coasted, make_bool, "coasted", "Extrapolated, not detected."),
    ROW(ENDED, ended, make_bool, "ended", "The last report of a track."),
};

_Static_assert(sizeof kAnswers / sizeof *kAnswers == kAnswerAttributes, "every answer has an attribute");

static PyObject *get_answer(PyObject *self, void *closure) {
    const AnswerRow *const row = closure;
    const ast_answers_t *const answers = answers_of((Record *)self);
    if (!answers) return NULL;
    if (!(answers->present & row->answer)) Py_RETURN_NONE;
    return row->make((const char *)answers + row->offset);
}

void fill_answer_attributes(PyGetSetDef *attributes) {
    for (size_t i = 0; i < kAnswerAttributes; ++i)
        attributes[i] =
            (PyGetSetDef){kAnswers[i].name, get_answer, NULL, kAnswers[i].what, (void *)(uintptr_t)&kAnswers[i]};
}

PyObject *answer_by_name(Record *record, const char *name) {
    for (size_t i = 0; i < kAnswerAttributes; ++i)
        if (strcmp(kAnswers[i].name, name) == 0) return get_answer((PyObject *)record, (void *)(uintptr_t)&kAnswers[i]);
    return NULL;
}
