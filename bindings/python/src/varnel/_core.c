/*
 * The part of the package that calls the C libraries. It is built against the stable ABI of Python 3.8, so
 * that one wheel serves every later Python. While a text is read, other threads run.
 */
#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

#include <string.h>

/* The text as UTF-8 in a new bytes object; NULL with an exception set. */
static PyObject *utf8_of(PyObject *text, const char *errors) {
  if (!PyUnicode_Check(text)) {
    PyErr_Format(PyExc_TypeError, "text must be str, not %R", (PyObject *)Py_TYPE(text));
    return NULL;
  }
  return PyUnicode_AsEncodedString(text, "utf-8", errors);
}

/* The twelve values as a dict; NULL with an exception set. */
static PyObject *dict_of(const VARNEL_PAIR *pairs) {
  PyObject *values = PyDict_New();
  for (int i = 0; values != NULL && i < VARNEL_VALUE_COUNT; ++i) {
    PyObject *value = PyUnicode_DecodeUTF8(pairs[i].value.str, pairs[i].value.len, "replace");
    if (value == NULL || PyDict_SetItemString(values, pairs[i].key, value) != 0) {
      Py_CLEAR(values);
    }
    Py_XDECREF(value);
  }
  return values;
}

PyDoc_STRVAR(parse_doc, "parse(text)\n--\n\nThe twelve values of a zone, or None.");

static PyObject *parse(PyObject *module, PyObject *text) {
  (void)module;
  PyObject *bytes = utf8_of(text, "strict");
  if (bytes == NULL) {
    if (!PyErr_ExceptionMatches(PyExc_UnicodeEncodeError)) {
      return NULL;
    }
    PyErr_Clear(); /* a lone surrogate: such a text has no UTF-8 form and holds no document */
    Py_RETURN_NONE;
  }
  char *characters = NULL;
  Py_ssize_t size = 0;
  if (PyBytes_AsStringAndSize(bytes, &characters, &size) != 0) {
    Py_DECREF(bytes);
    return NULL;
  }
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  int status;
  Py_BEGIN_ALLOW_THREADS
  status = varnel_parse_mrz(characters, varnel_utf16_length(characters, (size_t)size), &result, buffer,
                            sizeof buffer);
  Py_END_ALLOW_THREADS
  Py_DECREF(bytes);
  if (status != ERR_OK) {
    Py_RETURN_NONE;
  }
  varnel_export(&result, pairs);
  return dict_of(pairs);
}

PyDoc_STRVAR(inspect_doc, "inspect(text, year, month, day, repair)\n--\n\nAn inspection as JSON.");

static PyObject *inspect(PyObject *module, PyObject *args) {
  (void)module;
  PyObject *text;
  varnel_inspect_options options;
  if (!PyArg_ParseTuple(args, "Oiiii", &text, &options.year, &options.month, &options.day,
                        &options.repair)) {
    return NULL;
  }
  PyObject *bytes = utf8_of(text, "surrogatepass");
  char *characters = NULL;
  Py_ssize_t size = 0;
  if (bytes == NULL || PyBytes_AsStringAndSize(bytes, &characters, &size) != 0) {
    Py_XDECREF(bytes);
    return NULL;
  }
  varnel_inspection inspection;
  char *json = NULL;
  int status;
  int length = 0;
  Py_BEGIN_ALLOW_THREADS
  status = varnel_inspect(characters, (size_t)size, &options, &inspection);
  Py_END_ALLOW_THREADS
  Py_DECREF(bytes);
  if (status != ERR_OK) {
    PyErr_Format(PyExc_ValueError, "text of more than %d bytes", (int)VARNEL_TEXT_MAX);
    return NULL;
  }
  length = varnel_inspection_json(&inspection, NULL, 0);
  json = PyMem_Malloc((size_t)length + 1);
  if (json == NULL) {
    return PyErr_NoMemory();
  }
  varnel_inspection_json(&inspection, json, (size_t)length + 1);
  PyObject *answer = PyUnicode_DecodeUTF8(json, length, "strict");
  PyMem_Free(json);
  return answer;
}

static PyMethodDef methods[] = {
    {"parse", parse, METH_O, parse_doc},
    {"inspect", inspect, METH_VARARGS, inspect_doc},
    {NULL, NULL, 0, NULL},
};

static struct PyModuleDef_Slot slots[] = {{0, NULL}};

static struct PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "varnel._core", NULL, 0, methods, slots, NULL, NULL, NULL,
};

PyMODINIT_FUNC PyInit__core(void) { return PyModuleDef_Init(&definition); }
