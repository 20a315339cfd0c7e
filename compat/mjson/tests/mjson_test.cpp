// Unit tests for the mjson 1.5 compatible JSON tree library.

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "json.h"

extern "C" size_t mjson_c_layout(int field);
extern "C" long mjson_c_count_nodes(const char *text);

namespace {

// Owns a parsed tree for the duration of a test.
class Tree {
public:
	explicit Tree(const char *text) : result_(json_parse_document(&root_, text)) {}
	~Tree() { json_free_value(&root_); }
	Tree(const Tree &) = delete;
	Tree &operator=(const Tree &) = delete;

	json_error result() const { return result_; }
	json_t *root() const { return root_; }
	json_t **slot() { return &root_; }

private:
	json_t *root_ = nullptr;
	json_error result_;
};

std::vector<json_t *> Children(const json_t *node) {
	std::vector<json_t *> out;
	for (json_t *c = node->child; c != nullptr; c = c->next)
		out.push_back(c);
	return out;
}

// Checks every link between node and its direct children.
void ExpectConsistentChildren(const json_t *node) {
	const std::vector<json_t *> kids = Children(node);
	if (kids.empty()) {
		EXPECT_EQ(node->child, nullptr);
		EXPECT_EQ(node->child_end, nullptr);
		return;
	}
	EXPECT_EQ(node->child, kids.front());
	EXPECT_EQ(node->child_end, kids.back());
	for (size_t i = 0; i < kids.size(); ++i) {
		EXPECT_EQ(kids[i]->parent, node);
		EXPECT_EQ(kids[i]->previous, i == 0 ? nullptr : kids[i - 1]);
		EXPECT_EQ(kids[i]->next, i + 1 == kids.size() ? nullptr : kids[i + 1]);
	}
}

json_t *ValueOf(const json_t *object, const char *label) {
	json_t *l = json_find_first_label(object, label);
	return l != nullptr ? l->child : nullptr;
}

std::string Text(const json_t *node) {
	return node != nullptr && node->text != nullptr ? std::string(node->text) : std::string("<null>");
}

}  // namespace

TEST(MjsonLayout, StructureMatchesAbi) {
	EXPECT_EQ(sizeof(json_value_type), 4u);
	EXPECT_EQ(offsetof(json_t, type), 0u);
	if (sizeof(void *) == 4) {
		EXPECT_EQ(sizeof(json_t), 28u);
		EXPECT_EQ(offsetof(json_t, text), 4u);
		EXPECT_EQ(offsetof(json_t, next), 8u);
		EXPECT_EQ(offsetof(json_t, previous), 12u);
		EXPECT_EQ(offsetof(json_t, parent), 16u);
		EXPECT_EQ(offsetof(json_t, child), 20u);
		EXPECT_EQ(offsetof(json_t, child_end), 24u);
	} else {
		EXPECT_EQ(sizeof(json_t), 56u);
		EXPECT_EQ(offsetof(json_t, text), 8u);
		EXPECT_EQ(offsetof(json_t, child_end), 48u);
	}
	EXPECT_EQ(mjson_c_layout(0), sizeof(json_t));
	EXPECT_EQ(mjson_c_layout(1), offsetof(json_t, type));
	EXPECT_EQ(mjson_c_layout(2), offsetof(json_t, text));
	EXPECT_EQ(mjson_c_layout(3), offsetof(json_t, next));
	EXPECT_EQ(mjson_c_layout(4), offsetof(json_t, previous));
	EXPECT_EQ(mjson_c_layout(5), offsetof(json_t, parent));
	EXPECT_EQ(mjson_c_layout(6), offsetof(json_t, child));
	EXPECT_EQ(mjson_c_layout(7), offsetof(json_t, child_end));
}

TEST(MjsonLayout, EnumValues) {
	EXPECT_EQ(JSON_STRING, 0);
	EXPECT_EQ(JSON_NUMBER, 1);
	EXPECT_EQ(JSON_OBJECT, 2);
	EXPECT_EQ(JSON_ARRAY, 3);
	EXPECT_EQ(JSON_TRUE, 4);
	EXPECT_EQ(JSON_FALSE, 5);
	EXPECT_EQ(JSON_NULL, 6);
	EXPECT_EQ(JSON_OK, 1);
	EXPECT_EQ(JSON_INCOMPLETE_DOCUMENT, 2);
	EXPECT_EQ(JSON_WAITING_FOR_EOF, 3);
	EXPECT_EQ(JSON_MALFORMED_DOCUMENT, 4);
	EXPECT_EQ(JSON_INCOMPATIBLE_TYPE, 5);
	EXPECT_EQ(JSON_MEMORY, 6);
	EXPECT_EQ(JSON_ILLEGAL_CHARACTER, 7);
	EXPECT_EQ(JSON_BAD_TREE_STRUCTURE, 8);
	EXPECT_EQ(JSON_MAXIMUM_LENGTH, 9);
	EXPECT_EQ(JSON_UNKNOWN_PROBLEM, 10);
}

TEST(MjsonParse, ObjectTreeShape) {
	Tree t("{\"a\":1,\"b\":\"x\",\"c\":true}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *root = t.root();
	ASSERT_NE(root, nullptr);
	EXPECT_EQ(root->type, JSON_OBJECT);
	EXPECT_EQ(root->text, nullptr);
	EXPECT_EQ(root->parent, nullptr);
	EXPECT_EQ(root->next, nullptr);
	EXPECT_EQ(root->previous, nullptr);
	ExpectConsistentChildren(root);

	const std::vector<json_t *> labels = Children(root);
	ASSERT_EQ(labels.size(), 3u);
	const char *names[] = {"a", "b", "c"};
	for (size_t i = 0; i < labels.size(); ++i) {
		EXPECT_EQ(labels[i]->type, JSON_STRING);
		EXPECT_STREQ(labels[i]->text, names[i]);
		ASSERT_NE(labels[i]->child, nullptr);
		EXPECT_EQ(labels[i]->child, labels[i]->child_end);
		ExpectConsistentChildren(labels[i]);
	}
	EXPECT_EQ(labels[0]->child->type, JSON_NUMBER);
	EXPECT_STREQ(labels[0]->child->text, "1");
	EXPECT_EQ(labels[1]->child->type, JSON_STRING);
	EXPECT_STREQ(labels[1]->child->text, "x");
	EXPECT_EQ(labels[2]->child->type, JSON_TRUE);
	EXPECT_EQ(labels[2]->child->text, nullptr);
	for (json_t *label : labels) {
		EXPECT_EQ(label->child->child, nullptr);
		EXPECT_EQ(label->child->child_end, nullptr);
	}
}

TEST(MjsonParse, ArrayTreeShape) {
	Tree t(" [1, \"two\", null, [], {}, [false]] ");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *root = t.root();
	ASSERT_NE(root, nullptr);
	EXPECT_EQ(root->type, JSON_ARRAY);
	EXPECT_EQ(root->text, nullptr);
	EXPECT_EQ(root->parent, nullptr);
	ExpectConsistentChildren(root);

	const std::vector<json_t *> items = Children(root);
	ASSERT_EQ(items.size(), 6u);
	EXPECT_EQ(items[0]->type, JSON_NUMBER);
	EXPECT_STREQ(items[0]->text, "1");
	EXPECT_EQ(items[1]->type, JSON_STRING);
	EXPECT_STREQ(items[1]->text, "two");
	EXPECT_EQ(items[2]->type, JSON_NULL);
	EXPECT_EQ(items[2]->text, nullptr);
	EXPECT_EQ(items[3]->type, JSON_ARRAY);
	EXPECT_EQ(items[3]->child, nullptr);
	EXPECT_EQ(items[3]->child_end, nullptr);
	EXPECT_EQ(items[4]->type, JSON_OBJECT);
	EXPECT_EQ(items[4]->child, nullptr);
	EXPECT_EQ(items[4]->child_end, nullptr);
	EXPECT_EQ(items[5]->type, JSON_ARRAY);
	ExpectConsistentChildren(items[5]);
	ASSERT_NE(items[5]->child, nullptr);
	EXPECT_EQ(items[5]->child->type, JSON_FALSE);
	EXPECT_EQ(items[5]->child->parent, items[5]);
}

TEST(MjsonParse, EmptyContainersAsRoot) {
	Tree obj("{}");
	ASSERT_EQ(obj.result(), JSON_OK);
	EXPECT_EQ(obj.root()->type, JSON_OBJECT);
	EXPECT_EQ(obj.root()->child, nullptr);
	Tree arr("\t[ ]\r\n");
	ASSERT_EQ(arr.result(), JSON_OK);
	EXPECT_EQ(arr.root()->type, JSON_ARRAY);
	EXPECT_EQ(arr.root()->child, nullptr);
}

TEST(MjsonParse, NumbersKeepTheirTextAsWritten) {
	const char *numbers[] = {"0",      "-12",    "3.50",   "1e3",    "1E+2", "2.5e-3",
	                         "-0.0",   "007e1",  "12345678901234567890123456789",
	                         "0.000000000000000000000000000001", "-9223372036854775809",
	                         "1.7976931348623157e308"};
	std::string doc = "[";
	size_t count = 0;
	for (const char *n : numbers) {
		if (std::strcmp(n, "007e1") == 0)
			continue;  // not a valid JSON number; checked below
		if (count++ != 0)
			doc += ", ";
		doc += n;
	}
	doc += "]";
	Tree t(doc.c_str());
	ASSERT_EQ(t.result(), JSON_OK) << doc;
	json_t *item = t.root()->child;
	for (const char *n : numbers) {
		if (std::strcmp(n, "007e1") == 0)
			continue;
		ASSERT_NE(item, nullptr);
		EXPECT_EQ(item->type, JSON_NUMBER);
		EXPECT_STREQ(item->text, n);
		item = item->next;
	}
	EXPECT_EQ(item, nullptr);

	Tree leading_zero("[007e1]");
	EXPECT_EQ(leading_zero.result(), JSON_MALFORMED_DOCUMENT);
	EXPECT_EQ(leading_zero.root(), nullptr);
}

TEST(MjsonParse, NumberAsRoot) {
	Tree t(" -42.125 ");
	ASSERT_EQ(t.result(), JSON_OK);
	EXPECT_EQ(t.root()->type, JSON_NUMBER);
	EXPECT_STREQ(t.root()->text, "-42.125");
	EXPECT_EQ(t.root()->parent, nullptr);
}

TEST(MjsonParse, NumberBeyondDoubleRangeIsRefused) {
	Tree t("[1e400]");
	EXPECT_EQ(t.result(), JSON_MAXIMUM_LENGTH);
	EXPECT_EQ(t.root(), nullptr);
}

TEST(MjsonParse, StringsAreUnescaped) {
	Tree t("[\"a\\\"b\", \"back\\\\slash\", \"\\/\", \"\\b\\f\\n\\r\\t\", \"\\u00e9\", "
	       "\"\\ud83d\\ude00\", \"caf\xc3\xa9\", \"\", \"\\u20AC\"]");
	ASSERT_EQ(t.result(), JSON_OK);
	const std::vector<json_t *> items = Children(t.root());
	ASSERT_EQ(items.size(), 9u);
	for (json_t *item : items)
		EXPECT_EQ(item->type, JSON_STRING);
	EXPECT_STREQ(items[0]->text, "a\"b");
	EXPECT_STREQ(items[1]->text, "back\\slash");
	EXPECT_STREQ(items[2]->text, "/");
	EXPECT_STREQ(items[3]->text, "\b\f\n\r\t");
	EXPECT_STREQ(items[4]->text, "\xc3\xa9");
	EXPECT_STREQ(items[5]->text, "\xf0\x9f\x98\x80");
	EXPECT_STREQ(items[6]->text, "caf\xc3\xa9");
	ASSERT_NE(items[7]->text, nullptr);
	EXPECT_STREQ(items[7]->text, "");
	EXPECT_STREQ(items[8]->text, "\xe2\x82\xac");
}

TEST(MjsonParse, LabelsAreUnescaped) {
	Tree t("{\"k\\u0041y\":1, \"tab\\there\":2, \"\":3}");
	ASSERT_EQ(t.result(), JSON_OK);
	const std::vector<json_t *> labels = Children(t.root());
	ASSERT_EQ(labels.size(), 3u);
	EXPECT_STREQ(labels[0]->text, "kAy");
	EXPECT_STREQ(labels[1]->text, "tab\there");
	EXPECT_STREQ(labels[2]->text, "");
	EXPECT_EQ(json_find_first_label(t.root(), "kAy"), labels[0]);
	EXPECT_EQ(json_find_first_label(t.root(), ""), labels[2]);
}

TEST(MjsonParse, StringAsRoot) {
	Tree t("\"hello\\nworld\"");
	ASSERT_EQ(t.result(), JSON_OK);
	EXPECT_EQ(t.root()->type, JSON_STRING);
	EXPECT_STREQ(t.root()->text, "hello\nworld");
	EXPECT_EQ(t.root()->child, nullptr);
}

TEST(MjsonParse, Literals) {
	Tree t("{\"t\":true,\"f\":false,\"n\":null}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *tv = ValueOf(t.root(), "t");
	json_t *fv = ValueOf(t.root(), "f");
	json_t *nv = ValueOf(t.root(), "n");
	ASSERT_NE(tv, nullptr);
	ASSERT_NE(fv, nullptr);
	ASSERT_NE(nv, nullptr);
	EXPECT_EQ(tv->type, JSON_TRUE);
	EXPECT_EQ(fv->type, JSON_FALSE);
	EXPECT_EQ(nv->type, JSON_NULL);
	EXPECT_EQ(tv->text, nullptr);
	EXPECT_EQ(fv->text, nullptr);
	EXPECT_EQ(nv->text, nullptr);

	const struct {
		const char *text;
		json_value_type type;
	} roots[] = {{"true", JSON_TRUE}, {" false", JSON_FALSE}, {"null ", JSON_NULL}};
	for (const auto &r : roots) {
		Tree single(r.text);
		ASSERT_EQ(single.result(), JSON_OK) << r.text;
		EXPECT_EQ(single.root()->type, r.type);
		EXPECT_EQ(single.root()->text, nullptr);
	}
}

TEST(MjsonFind, NestedObjects) {
	Tree t("{\"dev\":{\"id\":\"gw-1\",\"net\":{\"ip\":\"192.0.2.1\",\"mask\":24}},"
	       "\"x\":1,\"list\":[{\"x\":9}],\"x\":2}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *root = t.root();

	json_t *dev = json_find_first_label(root, "dev");
	ASSERT_NE(dev, nullptr);
	EXPECT_EQ(dev->type, JSON_STRING);
	EXPECT_STREQ(dev->text, "dev");
	EXPECT_EQ(dev->parent, root);
	ASSERT_NE(dev->child, nullptr);
	EXPECT_EQ(dev->child->type, JSON_OBJECT);
	ExpectConsistentChildren(dev->child);

	json_t *net = ValueOf(dev->child, "net");
	ASSERT_NE(net, nullptr);
	EXPECT_EQ(net->type, JSON_OBJECT);
	EXPECT_EQ(Text(ValueOf(net, "ip")), "192.0.2.1");
	EXPECT_EQ(Text(ValueOf(net, "mask")), "24");
	EXPECT_EQ(Text(ValueOf(dev->child, "id")), "gw-1");

	// First match wins; members of nested objects are not searched.
	json_t *x = json_find_first_label(root, "x");
	ASSERT_NE(x, nullptr);
	EXPECT_EQ(Text(x->child), "1");
	EXPECT_EQ(x->previous, dev);

	EXPECT_EQ(json_find_first_label(root, "missing"), nullptr);
	EXPECT_EQ(json_find_first_label(root, "ip"), nullptr);
	EXPECT_EQ(json_find_first_label(root, "X"), nullptr);
	EXPECT_EQ(json_find_first_label(root, "de"), nullptr);
	EXPECT_EQ(json_find_first_label(root, "devx"), nullptr);
}

TEST(MjsonFind, RefusesNonObjectsAndNullArguments) {
	Tree t("{\"a\":[{\"a\":1}],\"s\":\"a\"}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *array = ValueOf(t.root(), "a");
	ASSERT_NE(array, nullptr);
	EXPECT_EQ(json_find_first_label(array, "a"), nullptr);
	EXPECT_EQ(json_find_first_label(ValueOf(t.root(), "s"), "a"), nullptr);
	// A label node is a string, not an object.
	EXPECT_EQ(json_find_first_label(json_find_first_label(t.root(), "a"), "a"), nullptr);
	EXPECT_EQ(json_find_first_label(nullptr, "a"), nullptr);
	EXPECT_EQ(json_find_first_label(t.root(), nullptr), nullptr);
}

TEST(MjsonErrors, MalformedDocuments) {
	const struct {
		const char *text;
		json_error expected;
	} cases[] = {
	    {"{\"a\":}", JSON_MALFORMED_DOCUMENT},
	    {"abc", JSON_MALFORMED_DOCUMENT},
	    {"{\"a\" 1}", JSON_MALFORMED_DOCUMENT},
	    {"[1,]", JSON_MALFORMED_DOCUMENT},
	    {"{\"a\":1,}", JSON_MALFORMED_DOCUMENT},
	    {"[1 2]", JSON_MALFORMED_DOCUMENT},
	    {"{'a':1}", JSON_MALFORMED_DOCUMENT},
	    {"{a:1}", JSON_MALFORMED_DOCUMENT},
	    {"[tru]", JSON_MALFORMED_DOCUMENT},
	    {"[+1]", JSON_MALFORMED_DOCUMENT},
	    {"[1.]", JSON_MALFORMED_DOCUMENT},
	    {"[.5]", JSON_MALFORMED_DOCUMENT},
	    {"]", JSON_MALFORMED_DOCUMENT},
	    {"{\"a\":1]", JSON_MALFORMED_DOCUMENT},
	    {"[1}", JSON_MALFORMED_DOCUMENT},
	    {"[NaN]", JSON_MALFORMED_DOCUMENT},
	    {"// comment\n{}", JSON_MALFORMED_DOCUMENT},
	    {"{}x", JSON_WAITING_FOR_EOF},
	    {"{} {}", JSON_WAITING_FOR_EOF},
	    {"[1] [2]", JSON_WAITING_FOR_EOF},
	    {"1 2", JSON_WAITING_FOR_EOF},
	    {"\"a\" ,", JSON_WAITING_FOR_EOF},
	    {"[\"\\x\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"\\u12G4\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"\\ud800\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"\\ud800\\u0041\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"a\x01z\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"line\nbreak\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"\xff\"]", JSON_ILLEGAL_CHARACTER},
	    {"[\"\xc3\x28\"]", JSON_ILLEGAL_CHARACTER},
	    {"{\"\xe2\x82\":1}", JSON_ILLEGAL_CHARACTER},
	};
	for (const auto &c : cases) {
		json_t *root = nullptr;
		EXPECT_EQ(json_parse_document(&root, c.text), c.expected) << c.text;
		EXPECT_EQ(root, nullptr) << c.text;
	}
}

TEST(MjsonErrors, EmptyAndTruncatedDocuments) {
	const char *cases[] = {"", "   ", "\n\t", "{", "[", "{\"a\"", "{\"a\":", "{\"a\":1", "{\"a\":1,",
	                       "[1,", "\"abc", "nul", "tr", "-", "1.", "1e", "1e+", "\"\\u00",
	                       "\"\\", "[{\"a\":[{}", "[\"caf\xc3"};
	for (const char *text : cases) {
		json_t *root = nullptr;
		EXPECT_EQ(json_parse_document(&root, text), JSON_INCOMPLETE_DOCUMENT) << "[" << text << "]";
		EXPECT_EQ(root, nullptr) << text;
	}
}

TEST(MjsonErrors, EveryPrefixOfADocumentIsIncomplete) {
	const std::string doc =
	    "{ \"name\" : \"caf\xc3\xa9 \\u00e9\\n\", \"list\":[1,-2.5e3,true,false,null,[]],"
	    "\"o\":{\"k\":{\"deep\":\"v\"}}, \"e\":{} }";
	{
		Tree whole(doc.c_str());
		ASSERT_EQ(whole.result(), JSON_OK);
	}
	for (size_t length = 0; length < doc.size(); ++length) {
		const std::string prefix = doc.substr(0, length);
		json_t *root = nullptr;
		EXPECT_EQ(json_parse_document(&root, prefix.c_str()), JSON_INCOMPLETE_DOCUMENT) << prefix;
		EXPECT_EQ(root, nullptr) << prefix;
	}
}

TEST(MjsonErrors, RootMustBeEmptyOnEntry) {
	Tree t("{\"a\":1}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *before = t.root();
	EXPECT_EQ(json_parse_document(t.slot(), "[2]"), JSON_BAD_TREE_STRUCTURE);
	EXPECT_EQ(t.root(), before);
	EXPECT_EQ(t.root()->type, JSON_OBJECT);
	EXPECT_EQ(Text(ValueOf(t.root(), "a")), "1");

	// A pointer the library never allocated is not touched either.
	json_t sentinel;
	std::memset(&sentinel, 0, sizeof sentinel);
	sentinel.type = JSON_NULL;
	json_t *foreign = &sentinel;
	EXPECT_EQ(json_parse_document(&foreign, "{}"), JSON_BAD_TREE_STRUCTURE);
	EXPECT_EQ(foreign, &sentinel);
	EXPECT_EQ(sentinel.type, JSON_NULL);
	EXPECT_EQ(sentinel.child, nullptr);
}

TEST(MjsonErrors, NullArguments) {
	EXPECT_NE(json_parse_document(nullptr, "{}"), JSON_OK);
	EXPECT_NE(json_parse_document(nullptr, nullptr), JSON_OK);
	json_t *root = nullptr;
	EXPECT_NE(json_parse_document(&root, nullptr), JSON_OK);
	EXPECT_EQ(root, nullptr);
	json_free_value(nullptr);
	json_free_value(&root);
	EXPECT_EQ(root, nullptr);
}

TEST(MjsonErrors, ParserIsReusableAfterErrors) {
	for (int i = 0; i < 3; ++i) {
		json_t *bad = nullptr;
		EXPECT_EQ(json_parse_document(&bad, "{\"a\":[1,2,{\"b\":"), JSON_INCOMPLETE_DOCUMENT);
		EXPECT_EQ(bad, nullptr);
		Tree good("{\"a\":[1,2,{\"b\":3}]}");
		ASSERT_EQ(good.result(), JSON_OK);
		json_t *a = ValueOf(good.root(), "a");
		ASSERT_NE(a, nullptr);
		EXPECT_EQ(Text(ValueOf(a->child_end, "b")), "3");
	}
}

TEST(MjsonDeep, DeeplyNestedArrays) {
	const size_t depth = 100000;
	const std::string doc = std::string(depth, '[') + std::string(depth, ']');
	Tree t(doc.c_str());
	ASSERT_EQ(t.result(), JSON_OK);
	size_t levels = 0;
	const json_t *last = nullptr;
	for (const json_t *n = t.root(); n != nullptr; n = n->child) {
		EXPECT_EQ(n->type, JSON_ARRAY);
		if (n->type != JSON_ARRAY)
			break;
		EXPECT_EQ(n->parent, last);
		last = n;
		++levels;
	}
	EXPECT_EQ(levels, depth);
	json_free_value(t.slot());
	EXPECT_EQ(t.root(), nullptr);
}

TEST(MjsonDeep, DeeplyNestedObjects) {
	const size_t depth = 100000;
	std::string doc;
	doc.reserve(depth * 6 + 1);
	for (size_t i = 0; i < depth; ++i)
		doc += "{\"k\":";
	doc += "0";
	doc.append(depth, '}');
	Tree t(doc.c_str());
	ASSERT_EQ(t.result(), JSON_OK);
	size_t levels = 0;
	const json_t *n = t.root();
	while (n != nullptr && n->type == JSON_OBJECT) {
		const json_t *label = json_find_first_label(n, "k");
		if (label == nullptr)
			break;
		++levels;
		n = label->child;
	}
	EXPECT_EQ(levels, depth);
	ASSERT_NE(n, nullptr);
	EXPECT_EQ(n->type, JSON_NUMBER);
	EXPECT_STREQ(n->text, "0");
}

TEST(MjsonDeep, DeeplyNestedTruncatedDocumentIsFreed) {
	const std::string doc(100000, '[');
	json_t *root = nullptr;
	EXPECT_EQ(json_parse_document(&root, doc.c_str()), JSON_INCOMPLETE_DOCUMENT);
	EXPECT_EQ(root, nullptr);
	const std::string bad = std::string(100000, '[') + "x";
	EXPECT_EQ(json_parse_document(&root, bad.c_str()), JSON_MALFORMED_DOCUMENT);
	EXPECT_EQ(root, nullptr);
}

TEST(MjsonFree, SetsPointerToNull) {
	json_t *root = nullptr;
	ASSERT_EQ(json_parse_document(&root, "{\"a\":[1,{\"b\":null}],\"c\":\"d\"}"), JSON_OK);
	ASSERT_NE(root, nullptr);
	json_free_value(&root);
	EXPECT_EQ(root, nullptr);
	json_free_value(&root);  // second call is a no-op
	EXPECT_EQ(root, nullptr);
}

TEST(MjsonFree, FreeingLabelsUnlinksThem) {
	Tree t("{\"a\":1,\"b\":[1,2,{\"x\":3}],\"c\":3,\"d\":4}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *root = t.root();
	json_t *a = json_find_first_label(root, "a");
	json_t *c = json_find_first_label(root, "c");
	json_t *d = json_find_first_label(root, "d");

	// Middle member.
	json_t *b = json_find_first_label(root, "b");
	ASSERT_NE(b, nullptr);
	json_free_value(&b);
	EXPECT_EQ(b, nullptr);
	EXPECT_EQ(json_find_first_label(root, "b"), nullptr);
	EXPECT_EQ(a->next, c);
	EXPECT_EQ(c->previous, a);
	ExpectConsistentChildren(root);
	EXPECT_EQ(Children(root).size(), 3u);

	// First member.
	json_free_value(&a);
	EXPECT_EQ(a, nullptr);
	EXPECT_EQ(root->child, c);
	EXPECT_EQ(c->previous, nullptr);
	ExpectConsistentChildren(root);

	// Last member.
	json_free_value(&d);
	EXPECT_EQ(root->child_end, c);
	EXPECT_EQ(c->next, nullptr);
	ExpectConsistentChildren(root);

	// Only member.
	json_free_value(&c);
	EXPECT_EQ(root->child, nullptr);
	EXPECT_EQ(root->child_end, nullptr);
}

TEST(MjsonFree, FreeingValuesUnlinksThem) {
	Tree t("{\"list\":[10,20,30],\"v\":{\"k\":\"x\"}}");
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *list = ValueOf(t.root(), "list");
	ASSERT_NE(list, nullptr);
	json_t *middle = list->child->next;
	ASSERT_STREQ(middle->text, "20");
	json_free_value(&middle);
	EXPECT_EQ(middle, nullptr);
	ExpectConsistentChildren(list);
	ASSERT_EQ(Children(list).size(), 2u);
	EXPECT_STREQ(list->child->text, "10");
	EXPECT_STREQ(list->child_end->text, "30");

	// A member's value: the label stays, without a child.
	json_t *label = json_find_first_label(t.root(), "v");
	json_t *value = label->child;
	json_free_value(&value);
	EXPECT_EQ(label->child, nullptr);
	EXPECT_EQ(label->child_end, nullptr);
	EXPECT_EQ(json_find_first_label(t.root(), "v"), label);
}

TEST(MjsonFree, FreeingInsideDeepTree) {
	const size_t depth = 100000;
	const std::string doc = "[0," + std::string(depth, '[') + std::string(depth, ']') + ",2]";
	Tree t(doc.c_str());
	ASSERT_EQ(t.result(), JSON_OK);
	json_t *deep = t.root()->child->next;
	ASSERT_NE(deep, nullptr);
	EXPECT_EQ(deep->type, JSON_ARRAY);
	json_free_value(&deep);
	EXPECT_EQ(deep, nullptr);
	ExpectConsistentChildren(t.root());
	ASSERT_EQ(Children(t.root()).size(), 2u);
	EXPECT_STREQ(t.root()->child->text, "0");
	EXPECT_STREQ(t.root()->child_end->text, "2");
}

TEST(MjsonCApi, UsableFromC) {
	EXPECT_EQ(mjson_c_count_nodes("{\"a\":[1,2],\"b\":{\"c\":null}}"), 9);
	EXPECT_EQ(mjson_c_count_nodes("[]"), 1);
	EXPECT_EQ(mjson_c_count_nodes("{"), -1);
}
