// The gateway's configuration tree (libtcapi.so.1) and the platform calls that apply its
// changes (libbrelo.so.1). Nodes hold named text attributes; an absent attribute reads as the
// empty text.
#ifndef BUNDLE_COMMON_PLATFORM_TCAPI_H
#define BUNDLE_COMMON_PLATFORM_TCAPI_H

extern "C" {
// Copies the attribute's text into `buf` (no size is passed; callers use zeroed buffers of
// 16..1024 bytes). 0 when the attribute exists, non-zero when the node or attribute is absent.
int tcapi_get(const char *node, const char *attr, char *buf);
int tcapi_set(const char *node, const char *attr, const char *value);
// Removes the whole node.
int tcapi_unset(const char *node);
// Persists the tree.
int tcapi_save(void);

// Applies the subsystem of a changed node at once (after tcapi_save).
int brelo_tcapi_commit(const char *node);
// Schedules the apply of a node's subsystem after `delay` (the platform's unit).
int brelo_tcapi_delay_commit(const char *node, int delay);
}

#endif
