// The simulated gateway's state, call log and programmed results.
#include <dirent.h>
#include <sys/stat.h>
#include <errno.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "sim/sim.h"

#ifndef SIM_DEFAULT_STATE
#define SIM_DEFAULT_STATE "sim/gateway"
#endif
#ifndef SIM_DEFAULT_SAVE
#define SIM_DEFAULT_SAVE ""
#endif

namespace {

// Lists keep every value at its place while others are added, so a pointer from get() stays
// valid until that very value changes.
struct Section {
  std::string name;
  std::list<std::pair<std::string, std::string>> entries;
};

struct Hook {
  sim_hook_fn fn;
  void *ctx;
};

struct World {
  bool initialized = false;
  std::list<Section> sections;  // in creation order
  // Every section by name (the list keeps each section at its place, so the pointers hold);
  // a gateway with thousands of sections answers as fast as one with a few.
  std::unordered_map<std::string, Section *> by_name;
  std::map<std::string, int> results;
  std::map<std::string, Hook> hooks;
  std::string log;
  std::string log_copy;  // what sim_log() hands out
  std::string save_path;
};

std::recursive_mutex g_mutex;
World g_world;

Section *find_section(const std::string &name) {
  auto it = g_world.by_name.find(name);
  return it != g_world.by_name.end() ? it->second : nullptr;
}

Section &make_section(const std::string &name) {
  if (Section *s = find_section(name)) return *s;
  g_world.sections.push_back(Section{name, {}});
  g_world.by_name[name] = &g_world.sections.back();
  return g_world.sections.back();
}

// Removes every section `doomed` says yes to, from the list and the index.
template <typename Pred>
void remove_sections(Pred doomed) {
  for (auto it = g_world.sections.begin(); it != g_world.sections.end();) {
    if (doomed(*it)) {
      g_world.by_name.erase(it->name);
      it = g_world.sections.erase(it);
    } else {
      ++it;
    }
  }
}

void set_value(const std::string &section, const std::string &key, const std::string &value) {
  Section &s = make_section(section);
  for (auto &e : s.entries) {
    if (e.first == key) {
      // An unchanged value is not rewritten: setters that write what is already there (as
      // Java threads often do) leave every pointer handed out by get() untouched.
      if (e.second != value) e.second = value;
      return;
    }
  }
  s.entries.emplace_back(key, value);
}

std::string trim(const std::string &t) {
  size_t b = t.find_first_not_of(" \t\r");
  if (b == std::string::npos) return "";
  size_t e = t.find_last_not_of(" \t\r");
  return t.substr(b, e - b + 1);
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Values may be written in double quotes (to keep outer spaces) and use the escapes
// \\ \" \n \t and \xHH (any byte, e.g. texts that are not UTF-8).
bool decode_value(const std::string &raw, std::string *out) {
  std::string v = raw;
  if (v.size() >= 2 && v.front() == '"' && v.back() == '"') v = v.substr(1, v.size() - 2);
  out->clear();
  for (size_t i = 0; i < v.size(); ++i) {
    char c = v[i];
    if (c != '\\') {
      out->push_back(c);
      continue;
    }
    if (++i >= v.size()) return false;
    switch (v[i]) {
      case '\\': out->push_back('\\'); break;
      case '"': out->push_back('"'); break;
      case 'n': out->push_back('\n'); break;
      case 't': out->push_back('\t'); break;
      case 'x': {
        int h = i + 1 < v.size() ? hex_digit(v[i + 1]) : -1;
        int l = i + 2 < v.size() ? hex_digit(v[i + 2]) : -1;
        if (h < 0 || l < 0) return false;
        out->push_back(static_cast<char>(h * 16 + l));
        i += 2;
        break;
      }
      default: return false;
    }
  }
  return true;
}

std::string encode_value(const std::string &v) {
  std::string out = "\"";
  for (unsigned char c : v) {
    if (c == '\\' || c == '"') {
      out.push_back('\\');
      out.push_back(static_cast<char>(c));
    } else if (c < 0x20 || c >= 0x7F) {
      char hex[8];
      snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out.push_back(static_cast<char>(c));
    }
  }
  return out + "\"";
}

int load_file(const std::string &path) {
  FILE *f = fopen(path.c_str(), "r");
  if (f == nullptr) return -1;
  std::string section;
  char line[4096];
  int rc = 0, lineno = 0;
  while (fgets(line, sizeof line, f) != nullptr) {
    ++lineno;
    std::string t = trim(line);
    if (!t.empty() && t.back() == '\n') t.pop_back();
    t = trim(t);
    if (t.empty() || t[0] == '#' || t[0] == ';') continue;
    if (t[0] == '[') {
      if (t.back() != ']') {
        fprintf(stderr, "gateway sim: %s:%d: bad section line\n", path.c_str(), lineno);
        rc = -1;
        continue;
      }
      section = trim(t.substr(1, t.size() - 2));
      make_section(section);
      continue;
    }
    size_t eq = t.find('=');
    std::string value;
    if (eq == std::string::npos || section.empty() || !decode_value(trim(t.substr(eq + 1)), &value)) {
      fprintf(stderr, "gateway sim: %s:%d: expected key = value in a section\n", path.c_str(),
              lineno);
      rc = -1;
      continue;
    }
    set_value(section, trim(t.substr(0, eq)), value);
  }
  fclose(f);
  return rc;
}

int load_path(const std::string &path) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0) return -1;
  if (!S_ISDIR(st.st_mode)) return load_file(path);
  DIR *d = opendir(path.c_str());
  if (d == nullptr) return -1;
  std::vector<std::string> names;
  errno = 0;
  while (dirent *e = readdir(d)) {
    std::string n = e->d_name;
    if (n.size() > 4 && n.compare(n.size() - 4, 4, ".ini") == 0) names.push_back(n);
  }
  bool failed = errno != 0;
  closedir(d);
  if (failed) return -1;
  std::sort(names.begin(), names.end());
  int rc = 0;
  for (auto &n : names)
    if (load_file(path + "/" + n) != 0) rc = -1;
  return rc;
}

void reset_locked() {
  g_world = World();
  g_world.initialized = true;
}

int load_default_locked() {
  reset_locked();
  const char *state = getenv("BRELO_SIM_STATE");
  int rc = load_path(state != nullptr && *state ? state : SIM_DEFAULT_STATE);
  const char *save = getenv("BRELO_SIM_SAVE");
  g_world.save_path = save != nullptr ? save : SIM_DEFAULT_SAVE;
  if (!g_world.save_path.empty()) {
    FILE *f = fopen(g_world.save_path.c_str(), "r");
    if (f != nullptr) {
      fclose(f);
      // The saved tree replaces the shipped one.
      remove_sections([](const Section &s) { return s.name.rfind("tcapi ", 0) == 0; });
      load_file(g_world.save_path);
    }
  }
  return rc;
}

void ensure_init() {
  if (!g_world.initialized) load_default_locked();
}

}  // namespace

namespace sim {

void lock() { g_mutex.lock(); }
void unlock() { g_mutex.unlock(); }

void call(const char *fn, const char *argfmt, ...) {
  Hook hook{nullptr, nullptr};
  {
    std::lock_guard<std::recursive_mutex> g(g_mutex);
    ensure_init();
    char args[2048];
    va_list ap;
    va_start(ap, argfmt);
    vsnprintf(args, sizeof args, argfmt, ap);
    va_end(ap);
    g_world.log += fn;
    g_world.log += "(";
    g_world.log += args;
    g_world.log += ")\n";
    auto it = g_world.hooks.find(fn);
    if (it != g_world.hooks.end()) hook = it->second;
  }
  if (hook.fn != nullptr) hook.fn(fn, hook.ctx);
}

int result(const char *fn, int usual) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  auto it = g_world.results.find(fn);
  return it != g_world.results.end() ? it->second : usual;
}

bool has_result(const char *fn) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  return g_world.results.count(fn) != 0;
}

const char *get(const char *section, const char *key) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  Section *s = find_section(section);
  if (s == nullptr) return nullptr;
  for (auto &e : s->entries)
    if (e.first == key) return e.second.c_str();
  return nullptr;
}

std::string get_str(const char *section, const char *key, const char *dflt) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  const char *v = get(section, key);
  return v != nullptr ? v : dflt;
}

long long get_int(const char *section, const char *key, long long dflt) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  const char *v = get(section, key);
  if (v == nullptr || *v == '\0') return dflt;
  return strtoll(v, nullptr, 0);
}

void set(const char *section, const char *key, const std::string &value) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  set_value(section, key, value);
}

std::vector<std::string> sections(const char *prefix) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  std::vector<std::string> names;
  for (auto &s : g_world.sections)
    if (s.name.rfind(prefix, 0) == 0) names.push_back(s.name);
  return names;
}

std::vector<std::pair<std::string, std::string>> entries(const char *section) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  Section *s = find_section(section);
  std::vector<std::pair<std::string, std::string>> out;
  if (s != nullptr) out.assign(s->entries.begin(), s->entries.end());
  return out;
}

void remove_section(const char *section) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  remove_sections([&](const Section &s) { return s.name == section; });
}

void out_text(char *buf, size_t cap, const char *section, const char *key) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  const char *v = get(section, key);
  if (v == nullptr || cap == 0) return;
  size_t n = strlen(v);
  if (n > cap - 1) n = cap - 1;
  memcpy(buf, v, n);
  buf[n] = '\0';
}

// The configuration tree lives in the state as sections "tcapi <node>"; tcapi_save writes
// them out in the state-file format.
SIM_EXPORT int save_tree() {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  if (g_world.save_path.empty()) return 0;
  FILE *f = fopen(g_world.save_path.c_str(), "w");
  if (f == nullptr) return -1;
  fprintf(f, "# Configuration tree saved by the gateway simulator's tcapi_save.\n");
  for (auto &s : g_world.sections) {
    if (s.name.rfind("tcapi ", 0) != 0) continue;
    fprintf(f, "\n[%s]\n", s.name.c_str());
    for (auto &e : s.entries) fprintf(f, "%s = %s\n", e.first.c_str(), encode_value(e.second).c_str());
  }
  fclose(f);
  return 0;
}

}  // namespace sim

extern "C" {

SIM_EXPORT void sim_reset(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  reset_locked();
}

SIM_EXPORT int sim_load(const char *path) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  return load_path(path);
}

SIM_EXPORT int sim_load_default(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  return load_default_locked();
}

SIM_EXPORT void sim_set(const char *section, const char *key, const char *value) {
  sim::set(section, key, value);
}

SIM_EXPORT void sim_unset(const char *section, const char *key) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  if (key == nullptr) {
    sim::remove_section(section);
    return;
  }
  Section *s = find_section(section);
  if (s == nullptr) return;
  s->entries.remove_if([&](const std::pair<std::string, std::string> &e) { return e.first == key; });
}

SIM_EXPORT const char *sim_get(const char *section, const char *key) { return sim::get(section, key); }

SIM_EXPORT void sim_program_result(const char *fn, int rc) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  g_world.results[fn] = rc;
}

SIM_EXPORT void sim_program_hook(const char *fn, sim_hook_fn hook, void *ctx) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  if (hook == nullptr)
    g_world.hooks.erase(fn);
  else
    g_world.hooks[fn] = Hook{hook, ctx};
}

SIM_EXPORT const char *sim_log(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  g_world.log_copy = g_world.log;
  return g_world.log_copy.c_str();
}

SIM_EXPORT void sim_clear_log(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  g_world.log.clear();
}

SIM_EXPORT int sim_log_count(const char *fn) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  std::string needle = std::string(fn) + "(";
  int n = 0;
  size_t pos = 0;
  const std::string &log = g_world.log;
  while (pos < log.size()) {
    size_t end = log.find('\n', pos);
    if (end == std::string::npos) end = log.size();
    if (log.compare(pos, needle.size(), needle) == 0) ++n;
    pos = end + 1;
  }
  return n;
}

SIM_EXPORT void sim_set_save_path(const char *path) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  g_world.save_path = path != nullptr ? path : "";
}

}  // extern "C"
