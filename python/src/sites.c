/* Sites: where data sources stand. */
#include "binding.h"

#include <string.h>

PyTypeObject *sites_type;

/* What is learnt beside the ones that are given. */
enum { kRoom = 1024 };

static PyObject *new_sites(PyTypeObject *type, PyObject *arguments, PyObject *keywords) {
    static char *names[] = {NULL};
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "", names)) return NULL;
    ast_site_t *const room = PyMem_Malloc(kRoom * sizeof *room);
    if (!room) return PyErr_NoMemory();
    Sites *const sites = PyObject_New(Sites, type);
    if (sites)
        sites->table = (ast_sites_t){.sites = room, .room = kRoom};
    else
        PyMem_Free(room);
    return (PyObject *)sites;
}

static void free_sites(PyObject *self) {
    PyMem_Free(((Sites *)self)->table.sites);
    free_instance(self);
}

static PyObject *add(PyObject *self, PyObject *arguments) {
    ast_site_t site = {.known = AST_SITE_GIVEN};
    int sac, sic;
    if (!PyArg_ParseTuple(arguments, "iidd|d", &sac, &sic, &site.place.latitude_deg, &site.place.longitude_deg,
                          &site.place.height_m))
        return NULL;
    site.sac = (uint32_t)sac;
    site.sic = (uint32_t)sic;
    if (!ast_sites_add(&((Sites *)self)->table, &site)) {
        PyErr_SetString(PyExc_ValueError,
                        "is no site: SAC and SIC up to 255, a place on the globe, 1024 of them at most");
        return NULL;
    }
    Py_RETURN_NONE;
}

static const char *known_name(uint32_t known) {
    static const char *const kNames[] = {"", "worked out", "learnt", "given"};
    return known < sizeof kNames / sizeof *kNames ? kNames[known] : "";
}

static PyObject *to_dict(PyObject *self, PyObject *none) {
    (void)none;
    const ast_sites_t *const table = &((const Sites *)self)->table;
    PyObject *const all = PyDict_New();
    for (uint64_t i = 0; all && i < table->count; ++i) {
        const ast_site_t *const site = &table->sites[i];
        PyObject *const key = Py_BuildValue("II", (unsigned)site->sac, (unsigned)site->sic);
        PyObject *const value = Py_BuildValue("ddds", site->place.latitude_deg, site->place.longitude_deg,
                                              site->place.height_m, known_name(site->known));
        const bool is_set = key && value && PyDict_SetItem(all, key, value) == 0;
        Py_XDECREF(key);
        Py_XDECREF(value);
        if (!is_set) {
            Py_DECREF(all);
            return NULL;
        }
    }
    return all;
}

static Py_ssize_t count_sites(PyObject *self) { return (Py_ssize_t)((const Sites *)self)->table.count; }

static PyMethodDef sites_methods[] = {
    {"add", add, METH_VARARGS,
     "add($self, sac, sic, latitude, longitude, height=0.0)\n--\n\n"
     "Adds a site by degrees of WGS-84 and metres above the ellipsoid."},
    {"to_dict", to_dict, METH_NOARGS,
     "to_dict($self)\n--\n\n{(sac, sic): (latitude, longitude, height, how it is known: \"given\" or \"learnt\")}."},
    {NULL, NULL, 0, NULL},
};

static PyType_Slot sites_slots[] = {
    {Py_tp_doc, (void *)(uintptr_t) "Where data sources stand; given, and learnt from what they tell while a recording "
                                    "is read."},
    {Py_tp_new, SLOT(new_sites)},
    {Py_tp_dealloc, SLOT(free_sites)},
    {Py_tp_methods, sites_methods},
    {Py_sq_length, SLOT(count_sites)},
    {0, NULL},
};
static PyType_Spec sites_spec = {
    .name = "libast.Sites", .basicsize = sizeof(Sites), .flags = Py_TPFLAGS_DEFAULT, .slots = sites_slots};

bool add_sites(PyObject *module) { return (sites_type = add_type(module, "Sites", &sites_spec)) != NULL; }
