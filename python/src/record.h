/* What the sources share that make up a record as an object. */
#ifndef LIBAST_RECORD_H
#define LIBAST_RECORD_H

#include "binding.h"

/* All of a record but its items; and one of these. */
void restore_head(const Record *record, ast_datarecord_t *restored);
ast_dataitem_t restore_item(const Record *record, const RecordItem *item);

/* ---- answers.c ---- */

/* The answers that have attributes: the category is none of them, and the timestamp has two. */
enum { kAnswerAttributes = AST_ANSWERS };
void fill_answer_attributes(PyGetSetDef *attributes);

/* The answer of that name, or null, without an exception, where there is none of the name. */
PyObject *answer_by_name(Record *record, const char *name);

/* ---- lines.c: arguments are those of Python ---- */

PyObject *to_dict(PyObject *record, PyObject *arguments, PyObject *keywords);
PyObject *to_json(PyObject *record, PyObject *arguments, PyObject *keywords);

/* ---- items.c: the same ---- */

PyObject *get_member(PyObject *record, PyObject *key);
int has_member(PyObject *record, PyObject *key);
PyObject *list_keys(PyObject *record, PyObject *none);
PyObject *iterate_keys(PyObject *record);
PyObject *get_by_path(PyObject *record, PyObject *arguments);

#endif
