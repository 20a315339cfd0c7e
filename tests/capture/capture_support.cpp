#include "tests/capture/capture_support.h"

#include <dlfcn.h>
#include <stdio.h>
#include <ctype.h>
#include <string.h>

#include <iterator>

#include "sim/sim_control.h"
#include "tests/sample_arguments.h"

namespace capturetest {

std::set<std::string> capture_reads() {
  std::set<std::string> names;
  for (int fn = 0; fn < capture::kReadCount; ++fn) names.insert(capture::read_name(fn));
  return names;
}

std::vector<std::string> logged_functions(const std::string &log) {
  std::vector<std::string> names;
  size_t at = 0;
  while (at < log.size()) {
    size_t nl = log.find('\n', at);
    if (nl == std::string::npos) nl = log.size();
    std::string line = log.substr(at, nl - at);
    size_t paren = line.find('(');
    if (paren != std::string::npos) names.push_back(line.substr(0, paren));
    at = nl + 1;
  }
  return names;
}

void *lookup_linked(const char *name, void *) { return dlsym(RTLD_DEFAULT, name); }

int capture_into(const std::string &dir, bool with_secrets, bool anonymize, std::string *messages,
                 capture::Lookup lookup, void *ctx) {
  FILE *out = tmpfile();
  capture::Options o;
  o.out_dir = dir.c_str();
  o.with_secrets = with_secrets;
  o.anonymize = anonymize;
  o.lookup = lookup;
  o.lookup_ctx = ctx;
  o.messages = out;
  o.time_text = "2026-01-01T00:00:00Z";
  int rc = capture::run(o);
  if (messages != nullptr && out != nullptr) {
    messages->clear();
    rewind(out);
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, out)) > 0) messages->append(buf, n);
  }
  if (out != nullptr) fclose(out);
  return rc;
}

namespace {

std::string shown_args(fakejni::FakeJvm &jvm, const catalogue::Native &n,
                       const std::vector<catalogue::Arg> &args) {
  JNIEnv *env = jvm.env();
  std::string out;
  const char *p = n.params;
  for (size_t i = 0; *p != '\0'; ++p, ++i) {
    if (i > 0) out += ", ";
    const catalogue::Arg &a = args[i];
    switch (*p) {
      case 'I': out += std::to_string(a.i); break;
      case 'Z': out += a.z ? "true" : "false"; break;
      case 'B': out += std::to_string(a.b); break;
      case 'S': out += a.s == nullptr ? "null" : "\"" + jvm.text(a.s) + "\""; break;
      case 'A': {
        out += "[";
        jsize len = a.a != nullptr ? env->GetArrayLength(a.a) : 0;
        for (jsize k = 0; k < len; ++k) {
          jstring e = static_cast<jstring>(env->GetObjectArrayElement(a.a, k));
          out += (k ? ", \"" : "\"") + jvm.text(e) + "\"";
          env->DeleteLocalRef(e);
        }
        out += "]";
        break;
      }
      case 'Y': out += "bytes:" + jvm.contents(a.y); break;
      default: break;
    }
  }
  return std::string(n.method) + "(" + out + ")";
}

const jint kInts[] = {-1, 3, 4, 5, 6, 8, 9, 16, 99};
const char *const kTexts[] = {"LAN2", "SSID1", "SSID5", "ONLINE", "OFFLINE", "TRUST", "5G", "2.4G", "WAN"};

}  // namespace

std::vector<Call> query_calls(fakejni::FakeJvm &jvm, const std::vector<std::string> &macs_given,
                              const capture::Anonymizer *anon) {
  std::vector<std::string> macs;
  for (const std::string &m : macs_given) {
    capture::Text t;
    if (anon != nullptr) {
      anon->mac_text(m.data(), m.size(), &t);
    } else {
      t.append(m.data(), m.size());
    }
    macs.push_back(std::string(t.data(), t.size()));
  }
  std::string lower = macs.empty() ? "" : macs[0];
  for (char &c : lower) c = static_cast<char>(tolower(c));
  std::vector<std::vector<std::string>> mac_sets = {
      {},
      std::vector<std::string>(macs.begin(), macs.begin() + (macs.size() < 3 ? macs.size() : 3)),
      macs,
      {lower, "", "00:11:22:33:44:55"},
  };
  std::vector<std::string> texts(std::begin(kTexts), std::end(kTexts));
  texts.push_back(macs.size() > 0 ? macs[0] : "");
  texts.push_back(lower);
  const int ints = static_cast<int>(sizeof kInts / sizeof kInts[0]);
  const int extra = static_cast<int>(texts.size());
  std::vector<Call> calls;
  std::set<std::string> seen;
  for (size_t k = 0; k < catalogue::kNativeCount; ++k) {
    const catalogue::Native &n = catalogue::kNatives[k];
    if (strncmp(n.method, "get", 3) != 0) continue;
    for (int set = 0; set < samples::kArgSets + extra; ++set) {
      std::vector<catalogue::Arg> args;
      if (set < samples::kArgSets) {
        args = samples::arguments(jvm, n, set);
      } else {
        int e = set - samples::kArgSets;
        for (const char *p = n.params; *p != '\0'; ++p) {
          catalogue::Arg a;
          switch (*p) {
            case 'I': a.i = kInts[e % ints]; break;
            case 'Z': a.z = e % 2 ? JNI_TRUE : JNI_FALSE; break;
            case 'B': a.b = static_cast<jbyte>(kInts[e % ints]); break;
            case 'S': a.s = jvm.str(texts[static_cast<size_t>(e)]); break;
            case 'A': a.a = jvm.array_of(mac_sets[static_cast<size_t>(e) % mac_sets.size()]); break;
            case 'Y': a.y = jvm.bytes_of("\x05"); break;
            default: break;
          }
          args.push_back(a);
        }
        if (args.empty()) args.emplace_back();
      }
      std::string shown = shown_args(jvm, n, args);
      if (!seen.insert(shown).second) continue;
      calls.push_back(Call{&n, args, shown});
    }
  }
  return calls;
}

std::string reply_of(fakejni::FakeJvm &jvm, const Call &call) {
  catalogue::Result r = call.native->call(jvm.env(), jvm.self(), call.args.data());
  switch (r.kind) {
    case catalogue::Returns::kInt: return "int " + std::to_string(r.number);
    case catalogue::Returns::kBool: return "bool " + std::to_string(r.number);
    case catalogue::Returns::kText: return "text " + jvm.text(r.text);
  }
  return "";
}

std::vector<std::string> host_macs(int n) {
  std::vector<std::string> macs;
  for (int i = 1; i <= n; ++i) {
    const char *mac = sim_get(("host " + std::to_string(i)).c_str(), "mac");
    if (mac == nullptr) break;
    macs.push_back(mac);
  }
  return macs;
}

}  // namespace capturetest
