// Control interface of the gateway simulator, for tests and tools (C linkage, exported by
// libgatewaysim.so, which the simulated libbrelo.so.1 and libtcapi.so.1 share).
//
// The simulated gateway is a set of sections of key = value texts, loaded from state files
// (see sim/gateway/), plus the configuration tree. Every platform function logs its call, reads
// its outputs from the state, and returns its usual result unless a test programmed another.
#ifndef SIM_CONTROL_H
#define SIM_CONTROL_H

#ifdef __cplusplus
extern "C" {
#endif

// Forgets everything: no state, no configuration tree, no programmed results or hooks, an
// empty call log, no persistence of the tree and no snapshot (sim_snapshot). The gateway then answers as a platform that
// knows nothing (empty texts, zero numbers, empty lists).
void sim_reset(void);

// Loads a state file, or every *.ini file of a directory in name order, on top of the current
// state. Sections named "tcapi <node>" become configuration-tree nodes; the lines of a section
// named "results" ("function = code") program results as sim_program_result does. A directory
// holding capture.ini is a captured gateway (bundle_sc-capture): it replaces the whole state
// (programmed results included; where the tree is saved stays), and one whose capture did not
// finish ("complete = 1" missing from its [capture] section) is refused and leaves the state
// as it was. 0 on success, -1 when the path cannot be read, a line is malformed or the
// capture is incomplete.
int sim_load(const char *path);

// sim_reset(), then the default simulated gateway: $BRELO_SIM_STATE if set, else the state
// shipped with the simulator. tcapi_save writes the configuration tree to $BRELO_SIM_SAVE
// (nowhere when it is unset or empty), and a tree saved there before is read back: its nodes
// replace the nodes of the same name, the nodes it lists as removed are removed, and every
// other node stays as the default state has it.
// This is also what happens on the first platform call of a process that set nothing up.
int sim_load_default(void);

// sim_load_default() without reading a saved tree back: the default gateway as shipped (or as
// $BRELO_SIM_STATE has it). tcapi_save still writes to $BRELO_SIM_SAVE.
int sim_load_fresh(void);

// Remembers the state as it is now (every section and value, the configuration tree, the nodes
// removed from it and where tcapi_save writes it), for sim_restore, and returns a number naming
// this snapshot (never 0).
// There is one snapshot at a time: taking a new one replaces the previous one.
unsigned long sim_snapshot(void);

// Back to the state of snapshot `id`, as if it had been loaded afresh: the results its state
// programmed ([results]) and no others, no hooks, an empty call log. A state that nothing changed since the snapshot (or since the last
// restore) is kept as it is, with everything the simulated functions derived from it, so a
// restore after a query costs almost nothing; a changed state is copied back from the
// snapshot. -1 (and nothing done) when `id` is not the snapshot remembered now (none was taken,
// a later one replaced it, or sim_reset forgot it).
int sim_restore(unsigned long id);

// State values. A NULL key in sim_unset removes the whole section.
void sim_set(const char *section, const char *key, const char *value);
void sim_unset(const char *section, const char *key);
// The value, or NULL when absent. The pointer stays valid until the value changes.
const char *sim_get(const char *section, const char *key);

// Every later call of `fn` returns `rc` instead of its usual result.
void sim_program_result(const char *fn, int rc);
// `fn` returns its usual result again.
void sim_clear_result(const char *fn);
// 1 when the simulated libbrelo.so.1 or libtcapi.so.1 has a function `fn`, 0 when neither has,
// -1 when neither library can be opened to tell.
int sim_platform_function(const char *fn);
// 1 when the state has a section of that name (possibly empty), else 0.
int sim_section_exists(const char *section);

// `hook(fn, ctx)` runs at every later call of `fn`, after the call is logged and before the
// function produces its outputs.
typedef void (*sim_hook_fn)(const char *fn, void *ctx);
void sim_program_hook(const char *fn, sim_hook_fn hook, void *ctx);

// While a hook runs: the arguments of the call that ran it, as the call log shows them (text
// arguments quoted, numbers bare), whether the log is on or not. NULL outside a hook.
const char *sim_hook_arguments(void);

// The call log: one line "fn(arguments)\n" per platform call, in order. Text arguments are
// quoted, numbers bare, output buffers not shown. The pointer stays valid until the next call
// into the simulator.
// The log is bounded: once it holds more than 64 MiB of lines (or the limit set with
// sim_set_log_limit) the oldest lines are dropped, keeping about the last half of the limit,
// so a long run does not grow without end.
const char *sim_log(void);
// The same lines, each call that has returned followed by " -> <its return code>" (for people
// reading the log; sim_log's lines are what tests compare).
const char *sim_log_results(void);
void sim_clear_log(void);
// Number of logged calls of `fn` (among the lines the log still holds).
int sim_log_count(const char *fn);

// Turns the call log on (nonzero) or off. Off, platform calls are not logged at all and cost
// no formatting: for benchmarks and long runs that never read the log. The log is on unless
// the environment variable BRELO_SIM_LOG is "off" when the simulator is loaded. The setting
// survives sim_reset (which empties the log).
void sim_set_log(int on);

// Bounds the call log to `bytes` (0: the default of 64 MiB); survives sim_reset.
void sim_set_log_limit(unsigned long bytes);

// Where tcapi_save writes the tree (NULL: nowhere; the call is still logged).
void sim_set_save_path(const char *path);

// Whether the bridge may run route commands and resolve names in this process (its weak hook,
// see common/host_lookup.cpp): only when system() and gethostbyname() are the simulator's
// host side, libgatewayhost.so loaded ahead of the C library. Otherwise the bridge runs no
// command and makes no lookup, and the first refusal names the fix on standard error.
int sim_host_side_ready(void);
// For tests: 1 or 0 answers so from now on, -1 (the default) detects it; the refusal is
// explained again at the next one.
void sim_set_host_side(int ready);

#ifdef __cplusplus
}
#endif

#endif
