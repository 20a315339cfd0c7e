// mjson 1.5 compatible JSON tree library.
//
// Parsing is delegated to RapidJSON's SAX reader in iterative mode, so
// neither parsing nor tree construction recurses: nesting depth is limited
// only by memory.  The tree is built from the reader's events as they arrive.
//
// The library deliberately avoids the C++ runtime: memory comes from
// malloc/free, RapidJSON's own allocations are routed there too, and the
// shared object is linked with the C driver so libstdc++ is not needed.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#pragma GCC visibility push(default)
#include "json.h"
#pragma GCC visibility pop

namespace mjson_internal {

// RapidJSON creates a default allocator with plain new/delete when it is not
// handed one.  We always hand it one, but the code still has to compile and
// must not pull in libstdc++'s operator new/delete.
template <typename T>
T *HeapNew(const T &prototype) {
	void *memory = std::malloc(sizeof(T));
	return memory != nullptr ? ::new (memory) T(prototype) : nullptr;
}

template <typename T>
void HeapDelete(T *object) {
	if (object != nullptr) {
		object->~T();
		std::free(object);
	}
}

}  // namespace mjson_internal

#define RAPIDJSON_NEW(x) ::mjson_internal::HeapNew(x)
#define RAPIDJSON_DELETE(x) ::mjson_internal::HeapDelete(x)
#define RAPIDJSON_HAS_STDSTRING 0

#include <rapidjson/allocators.h>
#include <rapidjson/encodings.h>
#include <rapidjson/error/error.h>
#include <rapidjson/reader.h>

// The structure is shared with C callers; its layout is part of the ABI.
static_assert(sizeof(enum json_value_type) == 4, "json_value_type must be int sized");
static_assert(offsetof(json_t, type) == 0, "json_t layout");
#if defined(__SIZEOF_POINTER__) && __SIZEOF_POINTER__ == 4
static_assert(sizeof(json_t) == 28, "json_t layout (32-bit)");
static_assert(offsetof(json_t, text) == 4, "json_t layout (32-bit)");
static_assert(offsetof(json_t, next) == 8, "json_t layout (32-bit)");
static_assert(offsetof(json_t, previous) == 12, "json_t layout (32-bit)");
static_assert(offsetof(json_t, parent) == 16, "json_t layout (32-bit)");
static_assert(offsetof(json_t, child) == 20, "json_t layout (32-bit)");
static_assert(offsetof(json_t, child_end) == 24, "json_t layout (32-bit)");
#elif defined(__SIZEOF_POINTER__) && __SIZEOF_POINTER__ == 8
static_assert(sizeof(json_t) == 56, "json_t layout (64-bit)");
static_assert(offsetof(json_t, text) == 8, "json_t layout (64-bit)");
static_assert(offsetof(json_t, next) == 16, "json_t layout (64-bit)");
static_assert(offsetof(json_t, previous) == 24, "json_t layout (64-bit)");
static_assert(offsetof(json_t, parent) == 32, "json_t layout (64-bit)");
static_assert(offsetof(json_t, child) == 40, "json_t layout (64-bit)");
static_assert(offsetof(json_t, child_end) == 48, "json_t layout (64-bit)");
#else
#error "unsupported pointer size"
#endif

namespace mjson_internal {
namespace {

// Read-only stream over a NUL-terminated text.  It remembers whether the
// reader ever looked at the terminating NUL: a syntax error reported after
// that point means the text stopped before the document was complete.
// It never moves past the terminator.
class TextStream {
public:
	typedef char Ch;

	explicit TextStream(const char *text) : src_(text), head_(text), reached_end_(false) {}

	Ch Peek() const {
		const Ch c = *src_;
		if (c == '\0')
			reached_end_ = true;
		return c;
	}

	Ch Take() {
		const Ch c = *src_;
		if (c == '\0')
			reached_end_ = true;
		else
			++src_;
		return c;
	}

	size_t Tell() const { return static_cast<size_t>(src_ - head_); }

	// Write access is only used by in-situ parsing, which is not enabled.
	Ch *PutBegin() {
		RAPIDJSON_ASSERT(false);
		return nullptr;
	}
	void Put(Ch) { RAPIDJSON_ASSERT(false); }
	void Flush() { RAPIDJSON_ASSERT(false); }
	size_t PutEnd(Ch *) {
		RAPIDJSON_ASSERT(false);
		return 0;
	}

	bool ReachedEnd() const { return reached_end_; }

private:
	const Ch *src_;
	const Ch *head_;
	mutable bool reached_end_;
};

json_t *NewNode(json_value_type type, const char *text, size_t length) {
	json_t *node = static_cast<json_t *>(std::calloc(1, sizeof(json_t)));
	if (node == nullptr)
		return nullptr;
	node->type = type;
	if (text != nullptr) {
		node->text = static_cast<char *>(std::malloc(length + 1));
		if (node->text == nullptr) {
			std::free(node);
			return nullptr;
		}
		std::memcpy(node->text, text, length);
		node->text[length] = '\0';
	}
	return node;
}

void AppendChild(json_t *parent, json_t *node) {
	node->parent = parent;
	node->previous = parent->child_end;
	node->next = nullptr;
	if (parent->child_end != nullptr)
		parent->child_end->next = node;
	else
		parent->child = node;
	parent->child_end = node;
}

void Unlink(json_t *node) {
	if (node->previous != nullptr)
		node->previous->next = node->next;
	else if (node->parent != nullptr && node->parent->child == node)
		node->parent->child = node->next;
	if (node->next != nullptr)
		node->next->previous = node->previous;
	else if (node->parent != nullptr && node->parent->child_end == node)
		node->parent->child_end = node->previous;
	node->parent = nullptr;
	node->next = nullptr;
	node->previous = nullptr;
}

// Receives the reader's events and grows the tree.  Every node is linked
// into the tree as soon as it is created, so on failure freeing the root
// releases everything.
class TreeBuilder {
public:
	typedef char Ch;

	json_t *root = nullptr;
	bool out_of_memory = false;

	bool Null() { return AddValue(JSON_NULL, nullptr, 0) != nullptr; }
	bool Bool(bool b) { return AddValue(b ? JSON_TRUE : JSON_FALSE, nullptr, 0) != nullptr; }

	// Numbers arrive as text through RawNumber(); the binary forms are
	// never produced with the flags in use.
	bool Int(int) { return false; }
	bool Uint(unsigned) { return false; }
	bool Int64(int64_t) { return false; }
	bool Uint64(uint64_t) { return false; }
	bool Double(double) { return false; }

	bool RawNumber(const Ch *text, rapidjson::SizeType length, bool) {
		return AddValue(JSON_NUMBER, text, length) != nullptr;
	}

	bool String(const Ch *text, rapidjson::SizeType length, bool) {
		return AddValue(JSON_STRING, text, length) != nullptr;
	}

	bool StartObject() { return Open(JSON_OBJECT); }

	bool Key(const Ch *text, rapidjson::SizeType length, bool) {
		// Labels hang off the innermost open object; the member's value
		// becomes the label's child when it arrives.
		json_t *label = NewNode(JSON_STRING, text, length);
		if (label == nullptr) {
			out_of_memory = true;
			return false;
		}
		AppendChild(open_, label);
		return true;
	}

	bool EndObject(rapidjson::SizeType) { return Close(); }
	bool StartArray() { return Open(JSON_ARRAY); }
	bool EndArray(rapidjson::SizeType) { return Close(); }

private:
	json_t *AddValue(json_value_type type, const Ch *text, size_t length) {
		json_t *node = NewNode(type, text, length);
		if (node == nullptr) {
			out_of_memory = true;
			return nullptr;
		}
		if (open_ == nullptr)
			root = node;
		else if (open_->type == JSON_OBJECT)
			AppendChild(open_->child_end, node);  // the label from Key()
		else
			AppendChild(open_, node);
		return node;
	}

	bool Open(json_value_type type) {
		json_t *node = AddValue(type, nullptr, 0);
		if (node == nullptr)
			return false;
		open_ = node;
		return true;
	}

	bool Close() {
		json_t *up = open_->parent;
		if (up != nullptr && up->type == JSON_STRING)
			up = up->parent;  // step over the label holding this value
		open_ = up;
		return true;
	}

	json_t *open_ = nullptr;  // innermost object or array still open
};

enum json_error TranslateError(rapidjson::ParseErrorCode code, const TextStream &in,
                               const TreeBuilder &builder) {
	if (builder.out_of_memory)
		return JSON_MEMORY;
	switch (code) {
	case rapidjson::kParseErrorDocumentRootNotSingular:
		return JSON_WAITING_FOR_EOF;
	case rapidjson::kParseErrorTermination:
		return JSON_UNKNOWN_PROBLEM;
	default:
		break;
	}
	if (in.ReachedEnd())
		return JSON_INCOMPLETE_DOCUMENT;
	switch (code) {
	case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
	case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
	case rapidjson::kParseErrorStringEscapeInvalid:
	case rapidjson::kParseErrorStringInvalidEncoding:
		return JSON_ILLEGAL_CHARACTER;
	case rapidjson::kParseErrorNumberTooBig:
		return JSON_MAXIMUM_LENGTH;
	default:
		return JSON_MALFORMED_DOCUMENT;
	}
}

}  // namespace
}  // namespace mjson_internal

namespace mjson_internal {

// Frees a subtree and unlinks it from its parent and siblings. Also used by the parser for
// a document it refuses, directly rather than through the exported symbol, so that no other
// definition of json_free_value in the process can stand in for it.
void FreeTree(json_t **value) {
	if (value == nullptr || *value == nullptr)
		return;

	json_t *const top = *value;
	mjson_internal::Unlink(top);

	// Post-order walk without recursion: descend through child links,
	// cutting each one on the way down so a node is freed once its
	// children are gone, then continue with the next sibling or go back up.
	json_t *node = top;
	while (node != nullptr) {
		if (node->child != nullptr) {
			json_t *first = node->child;
			node->child = nullptr;
			node = first;
			continue;
		}
		json_t *following = nullptr;
		if (node != top)
			following = node->next != nullptr ? node->next : node->parent;
		std::free(node->text);
		std::free(node);
		node = following;
	}
	*value = nullptr;
}

}  // namespace mjson_internal

extern "C" enum json_error json_parse_document(json_t **root, const char *text) {
	using namespace mjson_internal;

	if (root == nullptr || *root != nullptr)
		return JSON_BAD_TREE_STRUCTURE;
	if (text == nullptr)
		return JSON_UNKNOWN_PROBLEM;

	static const unsigned kFlags = rapidjson::kParseIterativeFlag |
	                               rapidjson::kParseNumbersAsStringsFlag |
	                               rapidjson::kParseValidateEncodingFlag;

	rapidjson::CrtAllocator stack_allocator;
	rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, rapidjson::CrtAllocator> reader(
	    &stack_allocator);
	TextStream in(text);
	TreeBuilder builder;

	const rapidjson::ParseResult result = reader.Parse<kFlags>(in, builder);
	if (!result.IsError()) {
		*root = builder.root;
		return JSON_OK;
	}
	FreeTree(&builder.root);
	return TranslateError(result.Code(), in, builder);
}

extern "C" json_t *json_find_first_label(const json_t *object, const char *label) {
	if (object == nullptr || label == nullptr || object->type != JSON_OBJECT)
		return nullptr;
	for (json_t *member = object->child; member != nullptr; member = member->next) {
		if (member->text != nullptr && std::strcmp(member->text, label) == 0)
			return member;
	}
	return nullptr;
}

extern "C" void json_free_value(json_t **value) {
	mjson_internal::FreeTree(value);
}
