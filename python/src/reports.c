/* What a recording tells of: kept while there is no lock, and handed over with it. */
#include "recording.h"

#include <stdlib.h>
#include <string.h>

static char *keep_text(char **room, const char *text) {
    char *const kept = *room;
    const size_t size = strlen(text) + 1;
    memcpy(kept, text, size);
    *room += size;
    return kept;
}

void tell(void *context, const ast_recording_report_t *report) {
    Recording *const self = context;
    const size_t texts = strlen(report->file) + strlen(report->detail) + strlen(report->path) + 3;
    Told *const told = malloc(sizeof *told + texts);
    if (!told) return; /* its count is known all the same */
    told->next = NULL;
    told->report = *report;
    char *room = told->texts;
    told->report.file = keep_text(&room, report->file);
    told->report.detail = keep_text(&room, report->detail);
    told->report.path = keep_text(&room, report->path);
    *self->end_of_told = told;
    self->end_of_told = &told->next;
}

static Told *take_told(Recording *self) {
    Told *const told = self->told;
    if (!told) return NULL;
    self->told = told->next;
    if (!self->told) self->end_of_told = &self->told;
    return told;
}

bool is_loss(const ast_recording_report_t *report) {
    return report->kind == AST_REPORT_DAMAGED || report->kind == AST_REPORT_UNSUPPORTED ||
           report->kind == AST_REPORT_UNREADABLE;
}

/* Once for each cause. */
static bool warn_once(Recording *self, const ast_recording_report_t *report) {
    char cause[500];
    ast_recording_report_get_cause(cause, sizeof cause, report);
    PyObject *const key = PyUnicode_DecodeFSDefault(cause);
    const int is_known = key ? PySet_Contains(self->causes, key) : -1;
    const bool is_noted = is_known == 1 || (is_known == 0 && PySet_Add(self->causes, key) == 0);
    Py_XDECREF(key);
    return is_noted && (is_known == 1 || warn_of(report));
}

static bool keep_report(Recording *self, const ast_recording_report_t *report) {
    enum { kMostReports = 10000 };
    if (PyList_Size(self->reports) >= kMostReports) return true;
    PyObject *const made = make_report(report);
    const bool is_kept = made && PyList_Append(self->reports, made) == 0;
    Py_XDECREF(made);
    return is_kept;
}

bool hand_over_reports(Recording *self) {
    bool is_well = true;
    while (is_well && self->told) {
        Told *const told = take_told(self);
        is_well = keep_report(self, &told->report);
        if (is_well && is_loss(&told->report)) {
            if (self->manners == kRaise) is_well = raise_report(&told->report) != NULL;
            if (self->manners == kWarn && told->report.kind != AST_REPORT_UNREADABLE)
                is_well = warn_once(self, &told->report);
        }
        free(told);
    }
    return is_well;
}

void drop_reports(Recording *self) {
    while (self->told) free(take_told(self));
}
