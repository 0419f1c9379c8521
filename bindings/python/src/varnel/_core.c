/*
 * The part of the package that calls the C libraries. It is built against the stable ABI of Python 3.8, so
 * that one wheel serves every later Python. While a text is read, other threads run.
 */
#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include "composition.h"

#include <Varnel/Varnel.h>

#include <string.h>

/* More than any info needs: as many elements and findings as it holds, each under 96 bytes. */
enum { BARCODE_JSON_MAX = 16384 };

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
  Py_BEGIN_ALLOW_THREADS status = varnel_parse_mrz(characters, varnel_utf16_length(characters, (size_t)size),
                                                   &result, buffer, sizeof buffer);
  Py_END_ALLOW_THREADS Py_DECREF(bytes);
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
  if (!PyArg_ParseTuple(args, "Oiiii", &text, &options.year, &options.month, &options.day, &options.repair)) {
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
  Py_BEGIN_ALLOW_THREADS status = varnel_inspect(characters, (size_t)size, &options, &inspection);
  Py_END_ALLOW_THREADS Py_DECREF(bytes);
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

PyDoc_STRVAR(compose_doc,
             "compose(values)\n--\n\nThe lines of a zone; or key, reason, character and words of what "
             "was refused.");

/* Points to the UTF-8 of each value, in the order of composition_keys(); they are bytes, which end with a
 * NUL. */
static int point_to(PyObject *values, const char *texts[COMPOSITION_VALUES]) {
  if (!PyTuple_Check(values) || PyTuple_Size(values) != COMPOSITION_VALUES) {
    PyErr_SetString(PyExc_TypeError, "as many bytes are needed as there are keys");
    return -1;
  }
  for (int i = 0; i < COMPOSITION_VALUES; ++i) {
    char *text = NULL;
    if (PyBytes_AsStringAndSize(PyTuple_GetItem(values, i), &text, NULL) != 0) { /* refuses a NUL within */
      return -1;
    }
    texts[i] = text;
  }
  return 0;
}

static PyObject *compose(PyObject *module, PyObject *values) {
  (void)module;
  const char *texts[COMPOSITION_VALUES];
  varnel_zone zone;
  varnel_compose_error error;
  int status;
  if (point_to(values, texts) != 0) {
    return NULL;
  }
  Py_BEGIN_ALLOW_THREADS status = composition_compose(texts, &zone, &error);
  Py_END_ALLOW_THREADS if (status != ERR_OK) {
    return Py_BuildValue("(ssns)", composition_refused_key(&error), composition_reason(&error),
                         (Py_ssize_t)error.position, composition_words(&error));
  }
  PyObject *lines = PyList_New(0);
  for (int i = 0; lines != NULL && i < zone.line_count; ++i) {
    PyObject *line = PyUnicode_FromString(zone.lines[i]);
    if (line == NULL || PyList_Append(lines, line) != 0) {
      Py_CLEAR(lines);
    }
    Py_XDECREF(line);
  }
  return lines;
}

PyDoc_STRVAR(composition_keys_doc, "composition_keys()\n--\n\nThe keys of the values that compose() takes.");

static PyObject *composition_keys(PyObject *module, PyObject *nothing) {
  (void)module;
  (void)nothing;
  PyObject *keys = PyTuple_New(COMPOSITION_VALUES);
  for (int i = 0; keys != NULL && i < COMPOSITION_VALUES; ++i) {
    PyObject *key = PyUnicode_FromString(composition_key(i));
    if (key == NULL || PyTuple_SetItem(keys, i, key) != 0) {
      Py_CLEAR(keys);
    }
  }
  return keys;
}

PyDoc_STRVAR(barcode_doc,
             "barcode(text)\n--\n\nThe twelve values of a barcode and its info as JSON, or None.");

static PyObject *barcode(PyObject *module, PyObject *text) {
  (void)module;
  PyObject *bytes = utf8_of(text, "surrogatepass");
  char *characters = NULL;
  Py_ssize_t size = 0;
  if (bytes == NULL || PyBytes_AsStringAndSize(bytes, &characters, &size) != 0) {
    Py_XDECREF(bytes);
    return NULL;
  }
  if (size > VARNEL_BARCODE_TEXT_MAX) {
    Py_DECREF(bytes);
    return PyErr_Format(PyExc_ValueError, "text of more than %d bytes", (int)VARNEL_BARCODE_TEXT_MAX);
  }
  const int room = VARNEL_BARCODE_BUFFER_SIZE((int)size);
  char *const buffer = PyMem_Malloc((size_t)room);
  if (buffer == NULL) {
    Py_DECREF(bytes);
    return PyErr_NoMemory();
  }
  PARSE_RESULT record;
  varnel_barcode_info info;
  char json[BARCODE_JSON_MAX];
  int status;
  int length = 0;
  Py_BEGIN_ALLOW_THREADS status = varnel_barcode(characters, (size_t)size, &record, buffer, room, &info);
  length = varnel_barcode_info_json(&info, json, sizeof json);
  Py_END_ALLOW_THREADS Py_DECREF(bytes);
  PyObject *answer = NULL;
  if (status == ERR_OK) {
    VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
    varnel_export(&record, pairs);
    PyObject *const values = dict_of(pairs);
    answer = values == NULL ? NULL : Py_BuildValue("(Ns#)", values, json, (Py_ssize_t)length);
  } else {
    answer = Py_None;
    Py_INCREF(answer);
  }
  PyMem_Free(buffer);
  return answer;
}

static PyMethodDef methods[] = {
    {"parse", parse, METH_O, parse_doc},
    {"inspect", inspect, METH_VARARGS, inspect_doc},
    {"compose", compose, METH_O, compose_doc},
    {"composition_keys", composition_keys, METH_NOARGS, composition_keys_doc},
    {"barcode", barcode, METH_O, barcode_doc},
    {NULL, NULL, 0, NULL},
};

static struct PyModuleDef_Slot slots[] = {{0, NULL}};

static struct PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "varnel._core", NULL, 0, methods, slots, NULL, NULL, NULL,
};

PyMODINIT_FUNC PyInit__core(void) { return PyModuleDef_Init(&definition); }
