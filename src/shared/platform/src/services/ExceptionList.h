#pragma once
#include <boost/property_tree/ptree.hpp>
#include <functional>
#include <string>

#include "policy/PolicyFacts.h"

namespace services {

/// The list of platforms that a release supports or refuses whatever their age.
///
///     {"black_list": [{"products": ["teq"], "key": "hardwarePlatform.name", "value": "u77", "reason": "..."}],
///      "white_list": [...]}
class ExceptionList {
public:
    using ptree = boost::property_tree::ptree;

    /// Reads the list in its packed form. A file that is missing, damaged or not JSON gives an empty list.
    explicit ExceptionList(std::string file);

    /// What is wrong with a list that is to be packed, an entry that can never match included; empty if nothing is.
    static std::string faultOf(const ptree& list);

    /// Where the list is below an application root.
    static std::string fileBelow(const std::string& root);

    /// The first entry that is for the product and whose key has its value in the document, which is only asked for if
    /// there is an entry for the product. Sends "@74-49@%s" for an empty list, "@74-50@%s" for one of another form.
    policy::Listing match(const std::string& product, const std::function<const ptree&()>& document) const;

private:
    std::string file_;
    ptree list_;
};

}  // namespace services
