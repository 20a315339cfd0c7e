/*
 * Compiled as C: proves json.h is usable from C and lets the C++ tests
 * compare the structure layout seen by both languages.
 */
#include <stddef.h>
#include <stdlib.h>

#include "json.h"

size_t mjson_c_layout(int field)
{
	switch (field) {
	case 0: return sizeof(json_t);
	case 1: return offsetof(json_t, type);
	case 2: return offsetof(json_t, text);
	case 3: return offsetof(json_t, next);
	case 4: return offsetof(json_t, previous);
	case 5: return offsetof(json_t, parent);
	case 6: return offsetof(json_t, child);
	case 7: return offsetof(json_t, child_end);
	default: return (size_t)-1;
	}
}

/* Parses text from C and counts the nodes of the tree without recursion;
 * returns -1 when parsing fails. */
long mjson_c_count_nodes(const char *text)
{
	json_t *root = NULL;
	json_t *node;
	long count = 0;

	if (json_parse_document(&root, text) != JSON_OK)
		return -1;
	node = root;
	while (node != NULL) {
		++count;
		if (node->child != NULL) {
			node = node->child;
			continue;
		}
		while (node != NULL && node != root && node->next == NULL)
			node = node->parent;
		if (node == NULL || node == root)
			break;
		node = node->next;
	}
	json_free_value(&root);
	return root == NULL ? count : -2;
}
