/* The module, and what all of its types need. libast/__init__.py is what users see. */
#include "binding.h"

PyObject *refuse_new(PyTypeObject *type, PyObject *arguments, PyObject *keywords) {
    (void)arguments;
    (void)keywords;
    PyErr_Format(PyExc_TypeError, "%R is not made by calling it", type);
    return NULL;
}

void free_instance(PyObject *self) {
    PyTypeObject *const type = Py_TYPE(self);
    PyObject_Free(self);
    Py_DECREF(type);
}

bool add_object(PyObject *module, const char *name, PyObject *object) {
    Py_INCREF(object);
    if (PyModule_AddObject(module, name, object) == 0) return true;
    Py_DECREF(object);
    return false;
}

PyTypeObject *add_type(PyObject *module, const char *name, PyType_Spec *spec) {
    PyObject *const type = PyType_FromSpec(spec);
    if (!type || !add_object(module, name, type)) return NULL;
    return (PyTypeObject *)type;
}

PyObject *fill_sequence(PyTypeObject *type, PyObject *const *values, size_t count) {
    PyObject *const made = PyStructSequence_New(type);
    bool is_whole = made != NULL;
    for (size_t i = 0; i < count; ++i) {
        is_whole = is_whole && values[i];
        if (made && values[i])
            PyStructSequence_SetItem(made, (Py_ssize_t)i, values[i]);
        else
            Py_XDECREF(values[i]);
    }
    if (is_whole) return made;
    Py_XDECREF(made);
    return NULL;
}

static PyModuleDef definition = {
    .m_base = PyModuleDef_HEAD_INIT, .m_name = "libast._libast", .m_doc = "The libraries.", .m_size = -1};

static bool fill(PyObject *module) {
    return add_errors(module) && add_sites(module) && add_record(module) && add_recording(module) &&
           add_columns(module) && add_sender(module) && add_writer(module) && add_field(module) &&
           PyModule_AddFunctions(module, encode_methods) == 0 && PyModule_AddFunctions(module, field_methods) == 0 &&
           PyModule_AddStringConstant(module, "__version__", ast_library_version()) == 0;
}

/* Reports go to those who ask for them, not to standard output. */
PyMODINIT_FUNC PyInit__libast(void) {
    ast_log_handler_reg(NULL);
    PyObject *const module = PyModule_Create(&definition);
    if (module && fill(module)) return module;
    Py_XDECREF(module);
    return NULL;
}
