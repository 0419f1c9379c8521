/* What the class varnel.Varnel calls. Texts are UTF-8; values come one after the other, each with a NUL. */
#include <jni.h>

#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

#include <stdlib.h>
#include <string.h>

/* No more of a text than this is ever examined: 1023 UTF-16 units, each at most three bytes. */
enum { EXAMINED_BYTES = 3 * VARNEL_EXAMINED_MAX, JSON_MAX = 32768 };

static jbyteArray bytes_of(JNIEnv *env, const char *text, int length) {
  jbyteArray bytes = (*env)->NewByteArray(env, length);
  if (bytes != NULL) {
    (*env)->SetByteArrayRegion(env, bytes, 0, length, (const jbyte *)text);
  }
  return bytes;
}

/* Appends a text and a NUL; gives the new length. */
static int append(char *out, int length, const char *text, int size) {
  memcpy(out + length, text, (size_t)size);
  out[length + size] = '\0';
  return length + size + 1;
}

JNIEXPORT jbyteArray JNICALL Java_varnel_Varnel_keys(JNIEnv *env, jclass type) {
  (void)type;
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  char keys[VARNEL_BUFFER_SIZE];
  int length = 0;
  result_init(&result, buffer, sizeof buffer);
  varnel_export(&result, pairs);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    length = append(keys, length, pairs[i].key, (int)strlen(pairs[i].key));
  }
  return bytes_of(env, keys, length);
}

JNIEXPORT jbyteArray JNICALL Java_varnel_Varnel_parse___3B(JNIEnv *env, jclass type, jbyteArray text) {
  (void)type;
  char characters[EXAMINED_BYTES];
  jsize size = (*env)->GetArrayLength(env, text);
  if (size > EXAMINED_BYTES) {
    size = EXAMINED_BYTES;
  }
  (*env)->GetByteArrayRegion(env, text, 0, size, (jbyte *)characters);

  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  const int units = varnel_utf16_length(characters, (size_t)size);
  if (varnel_parse_mrz(characters, units, &result, buffer, sizeof buffer) != ERR_OK) {
    return NULL;
  }
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  char values[VARNEL_BUFFER_SIZE + VARNEL_VALUE_COUNT];
  int length = 0;
  varnel_export(&result, pairs);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    length = append(values, length, pairs[i].value.str, pairs[i].value.len);
  }
  return bytes_of(env, values, length);
}

JNIEXPORT jbyteArray JNICALL Java_varnel_Varnel_inspect___3BIIII(JNIEnv *env, jclass type, jbyteArray text,
                                                                 jint year, jint month, jint day,
                                                                 jint repair) {
  (void)type;
  const varnel_inspect_options options = {year, month, day, repair};
  const jsize size = (*env)->GetArrayLength(env, text);
  jbyte *characters = (*env)->GetByteArrayElements(env, text, NULL);
  if (characters == NULL) {
    return NULL; /* an OutOfMemoryError is pending */
  }
  varnel_inspection inspection;
  const int status = varnel_inspect((const char *)characters, (size_t)size, &options, &inspection);
  (*env)->ReleaseByteArrayElements(env, text, characters, JNI_ABORT);
  if (status != ERR_OK) {
    return NULL;
  }
  char json[JSON_MAX];
  return bytes_of(env, json, varnel_inspection_json(&inspection, json, sizeof json));
}
