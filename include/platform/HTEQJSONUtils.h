#pragma once
#include <boost/optional.hpp>
#include <boost/property_tree/ptree.hpp>
#include <string>

#include "text/ZrApi.h"

/// Reads from a property tree. A key is a path with "." between levels. The operations never fail: an empty
/// optional gives the result for a missing key.
class ZR_API HTEQJSONUtils {
public:
    using Tree = boost::property_tree::ptree;
    /// What `get_child_optional` returns, for a const tree and for one that is not.
    struct OptTree : boost::optional<const Tree&> {
        OptTree(boost::none_t = boost::none) {}
        OptTree(const boost::optional<const Tree&>& tree) : optional(tree) {}
        OptTree(const boost::optional<Tree&>& tree) : optional(tree) {}
    };

    static bool findKey(const Tree& tree, const std::string& key);
    static bool findKey(const OptTree& tree, const std::string& key);
    static bool hasKey(const Tree& tree, const std::string& key);
    static bool hasKey(const OptTree& tree, const std::string& key);
    /// The text at `key`; empty if the key is missing.
    static std::string getValue(const Tree& tree, const std::string& key);
    static std::string getValue(const OptTree& tree, const std::string& key);
    static std::string getStringValue(const Tree& tree, const std::string& key);
    static std::string getStringValue(const OptTree& tree, const std::string& key);
    /// Whether the text is "true"; case is ignored.
    static bool getBoolValue(const Tree& tree, const std::string& key);
    static bool getBoolValue(const OptTree& tree, const std::string& key);
    /// The leading signed decimal number of the text, truncated to the type. A text that does not begin with a number
    /// gives 0; an empty text gives the fallback.
    static int getIntValue(const Tree& tree, const std::string& key, int fallback);
    static int getIntValue(const OptTree& tree, const std::string& key, int fallback);
    static unsigned int getUnsignedIntValue(const Tree& tree, const std::string& key, unsigned int fallback);
    static unsigned int getUnsignedIntValue(const OptTree& tree, const std::string& key, unsigned int fallback);
    static long getLongValue(const Tree& tree, const std::string& key, long fallback);
    static long getLongValue(const OptTree& tree, const std::string& key, long fallback);
    static unsigned long getUnsignedLongValue(const Tree& tree, const std::string& key, unsigned long fallback);
    static unsigned long getUnsignedLongValue(const OptTree& tree, const std::string& key, unsigned long fallback);
};
