#include "platform/HTEQJSONUtils.h"

#include "text/HSTStringUtils.h"

namespace {

using Tree = HTEQJSONUtils::Tree;
using OptTree = HTEQJSONUtils::OptTree;

const std::string* textAt(const Tree& tree, const std::string& key) {
    const OptTree node = tree.get_child_optional(key);
    return node ? &node->data() : nullptr;
}

template <class Number>
Number numberAt(const Tree& tree, const std::string& key, Number fallback) {
    const std::string* text = textAt(tree, key);
    return text && !text->empty() ? static_cast<Number>(HSTStringUtils::toNumber(*text)) : fallback;
}

const Tree& orEmpty(const OptTree& tree) {
    static const Tree none;
    return tree ? *tree : none;
}

}  // namespace

bool HTEQJSONUtils::findKey(const Tree& tree, const std::string& key) { return textAt(tree, key) != nullptr; }
bool HTEQJSONUtils::findKey(const OptTree& tree, const std::string& key) { return tree && findKey(*tree, key); }
bool HTEQJSONUtils::hasKey(const Tree& tree, const std::string& key) { return findKey(tree, key); }
bool HTEQJSONUtils::hasKey(const OptTree& tree, const std::string& key) { return findKey(tree, key); }

std::string HTEQJSONUtils::getValue(const Tree& tree, const std::string& key) {
    const std::string* text = textAt(tree, key);
    return text ? *text : std::string();
}
std::string HTEQJSONUtils::getValue(const OptTree& tree, const std::string& key) {
    return getValue(orEmpty(tree), key);
}
std::string HTEQJSONUtils::getStringValue(const Tree& tree, const std::string& key) { return getValue(tree, key); }
std::string HTEQJSONUtils::getStringValue(const OptTree& tree, const std::string& key) { return getValue(tree, key); }

bool HTEQJSONUtils::getBoolValue(const Tree& tree, const std::string& key) {
    const std::string* text = textAt(tree, key);
    return text && HSTStringUtils::iequals(*text, "true");
}
bool HTEQJSONUtils::getBoolValue(const OptTree& tree, const std::string& key) {
    return tree && getBoolValue(*tree, key);
}

int HTEQJSONUtils::getIntValue(const Tree& tree, const std::string& key, int fallback) {
    return numberAt(tree, key, fallback);
}
int HTEQJSONUtils::getIntValue(const OptTree& tree, const std::string& key, int fallback) {
    return tree ? numberAt(*tree, key, fallback) : fallback;
}
unsigned int HTEQJSONUtils::getUnsignedIntValue(const Tree& tree, const std::string& key, unsigned int fallback) {
    return numberAt(tree, key, fallback);
}
unsigned int HTEQJSONUtils::getUnsignedIntValue(const OptTree& tree, const std::string& key, unsigned int fallback) {
    return tree ? numberAt(*tree, key, fallback) : fallback;
}
long HTEQJSONUtils::getLongValue(const Tree& tree, const std::string& key, long fallback) {
    return numberAt(tree, key, fallback);
}
long HTEQJSONUtils::getLongValue(const OptTree& tree, const std::string& key, long fallback) {
    return tree ? numberAt(*tree, key, fallback) : fallback;
}
unsigned long HTEQJSONUtils::getUnsignedLongValue(const Tree& tree, const std::string& key, unsigned long fallback) {
    return numberAt(tree, key, fallback);
}
unsigned long HTEQJSONUtils::getUnsignedLongValue(const OptTree& tree, const std::string& key,
                                                  unsigned long fallback) {
    return tree ? numberAt(*tree, key, fallback) : fallback;
}
