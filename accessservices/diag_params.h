// JSON parameter texts of the diagnostics natives: a flat object whose members are read by
// name; each value is the text of the member's value node, so a JSON number (2500) and a JSON
// string ("2500") read alike.
#ifndef BUNDLE_ACCESSSERVICES_DIAG_PARAMS_H
#define BUNDLE_ACCESSSERVICES_DIAG_PARAMS_H

#include <jni.h>
#include <json.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include "common/config_tree.h"
#include "common/java_chars.h"
#include "common/trace.h"

namespace bundle {

// A parsed parameter text, freed when it goes out of scope (freeing it changes no reply).
// Before a successful parse() it has no members, so every lookup gives its default. mjson is
// never handed a NULL tree: the gateway's own build of it does not promise to accept one.
class ParamTree {
 public:
  ParamTree() : root_(nullptr) {}
  ~ParamTree() {
    if (root_ != nullptr) json_free_value(&root_);
  }
  ParamTree(const ParamTree &) = delete;
  ParamTree &operator=(const ParamTree &) = delete;

  // True when mjson parsed `text` into a tree. Whatever a failed parse may have left behind
  // is forgotten, not freed: it is mjson's to dispose of, and a leak beats a double free.
  bool parse(const char *text) {
    if (json_parse_document(&root_, text) == JSON_OK && root_ != nullptr) return true;
    root_ = nullptr;
    return false;
  }

  // For a parameter text that may be left out: a null or empty text is no tree (every lookup
  // then gives its default) and is accepted; any other text must parse.
  bool parse_optional(const char *text) { return text == nullptr || text[0] == '\0' || parse(text); }

  // The value text of member `key`, or NULL when the member, its value node or the value's
  // text is missing (objects, arrays, true, false and null have no text).
  const char *text(const char *key) const {
    if (root_ == nullptr) return nullptr;
    const json_t *label = json_find_first_label(root_, key);
    if (label == nullptr || label->child == nullptr) return nullptr;
    return label->child->text;
  }

  // The member's value read as the gateway's atoi reads it (tree_atoi), or `dflt` when
  // text(key) is NULL.
  int32_t int_or(const char *key, int32_t dflt) const {
    const char *value = text(key);
    return value != nullptr ? tree_atoi(value) : dflt;
  }

 private:
  json_t *root_;
};

// One number of a start native's request record, read from its parameter text.
struct NumberParam {
  const char *key;
  uint16_t offset;   // of the uint32_t member in the request record
  uint16_t divisor;  // 1000 for a Timeout given in milliseconds and kept in seconds, else 1
  uint32_t dflt;     // when the member is absent, and when it reads as 0 ("not given")
  bool zero_kept;    // 0 is a value (DSCP): only an absent member gets the default
};

enum ParamsRead { kParamsRead, kParamsBad, kParamsPending };

// True for a NULL or empty Java text.
inline bool is_null_or_empty(const char *text) { return text == nullptr || text[0] == '\0'; }

// Copies the Java target host into a request record's 256-byte field and gives the text back.
// A host that cannot be had, is empty, or is 256 bytes or longer is refused (false), and its
// text is then deliberately left unreleased, as the start natives always did.
inline bool take_host(JNIEnv *env, jstring jhost, char (&field)[256]) {
  JavaChars host(env, jhost);
  if (is_null_or_empty(host.get()) || strnlen(host.get(), sizeof field) >= sizeof field) {
    host.keep();
    return false;
  }
  memcpy(field, host.get(), strlen(host.get()) + 1);
  host.release();
  return true;
}

// Reads a start native's request: the target host into `host` (take_host; a refused host is
// kParamsBad, and the parameter text is then not read), then the optional parameter text into
// the numbers `params` of `record` (a null or empty text gives every default), giving the text
// back. kParamsBad when the text is not JSON (traced under `native`); kParamsPending when the
// text could not be obtained: no diagnostic is started then.
ParamsRead read_diag_request(JNIEnv *env, jstring jhost, char (&host)[256], jstring jparameter,
                             TraceName native, const NumberParam *params, size_t count,
                             void *record);

}  // namespace bundle

#endif
