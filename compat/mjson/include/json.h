/*
 * json.h - mjson 1.5 compatible JSON tree API.
 *
 * A parsed document is a tree of json_t nodes linked through
 * parent/child/next/previous pointers:
 *
 *   - an object node's children are label nodes (JSON_STRING) in document
 *     order; each label's text is the member name and its single child is
 *     the member's value;
 *   - an array node's children are its element values;
 *   - a string node's text is the unescaped UTF-8 content;
 *   - a number node's text is the number exactly as written in the document;
 *   - object, array, true, false and null nodes have a NULL text.
 *
 * child points to the first child, child_end to the last one.  All memory is
 * obtained with malloc() and released with json_free_value().
 *
 * The functions are reentrant: they keep no global state.
 */
#ifndef MJSON_JSON_H
#define MJSON_JSON_H

#ifdef __cplusplus
extern "C" {
#endif

enum json_value_type {
	JSON_STRING = 0,
	JSON_NUMBER,
	JSON_OBJECT,
	JSON_ARRAY,
	JSON_TRUE,
	JSON_FALSE,
	JSON_NULL
};

enum json_error {
	JSON_OK = 1,              /* everything went fine */
	JSON_INCOMPLETE_DOCUMENT, /* the text ended before the document did */
	JSON_WAITING_FOR_EOF,     /* something follows the root value */
	JSON_MALFORMED_DOCUMENT,  /* syntax error */
	JSON_INCOMPATIBLE_TYPE,   /* a node of the wrong type was given */
	JSON_MEMORY,              /* out of memory */
	JSON_ILLEGAL_CHARACTER,   /* bad escape, control character or UTF-8 */
	JSON_BAD_TREE_STRUCTURE,  /* the tree argument is unusable */
	JSON_MAXIMUM_LENGTH,      /* a value exceeds what the parser can hold */
	JSON_UNKNOWN_PROBLEM      /* anything else, e.g. a NULL text */
};

typedef struct json_value {
	enum json_value_type type;
	char *text;
	struct json_value *next;
	struct json_value *previous;
	struct json_value *parent;
	struct json_value *child;
	struct json_value *child_end;
} json_t;

/*
 * Parses the NUL-terminated JSON document in text and stores its tree in
 * *root.  *root must be NULL on entry (otherwise JSON_BAD_TREE_STRUCTURE is
 * returned and *root is left alone).  Returns JSON_OK on success; on any
 * failure *root stays NULL and nothing is allocated.
 *
 * Errors: JSON_INCOMPLETE_DOCUMENT (empty or truncated text),
 * JSON_WAITING_FOR_EOF (text after the root value), JSON_MALFORMED_DOCUMENT
 * (syntax error), JSON_ILLEGAL_CHARACTER (bad escape, raw control character
 * in a string, invalid UTF-8), JSON_MAXIMUM_LENGTH (a number whose magnitude
 * exceeds the range of a double), JSON_MEMORY, JSON_BAD_TREE_STRUCTURE
 * (NULL root or *root not NULL), JSON_UNKNOWN_PROBLEM (NULL text).
 */
enum json_error json_parse_document(json_t **root, const char *text);

/*
 * Returns the label node of the first member of object whose name equals
 * label, or NULL if there is none, object is NULL or not a JSON_OBJECT, or
 * label is NULL.  The member's value is the returned node's child.
 */
json_t *json_find_first_label(const json_t *object, const char *label);

/*
 * Frees the subtree rooted at *value, unlinking it first from its parent and
 * siblings if it has a parent, and sets *value to NULL.  Does nothing when
 * value or *value is NULL.
 */
void json_free_value(json_t **value);

#ifdef __cplusplus
}
#endif

#endif /* MJSON_JSON_H */
