#pragma once
#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/SupportPolicy.h"

namespace policy {

using teq::platform::PolicyQuestion;
using teq::platform::PolicyVerdict;

/// How the list of exceptions marks a platform.
enum class Color { black = 0, white = 1, unreadable = 2, unlisted = 3 };

struct Listing {
    Color color = Color::unlisted;
    std::string reason;  ///< of the entry that matched
};

/// A version as a rule compares it.
struct Version {
    std::string text;
    int major = 0, minor = 0;
};
/// The first two pieces of a text such as "2021.1"; a missing second piece is 0. Throws std::invalid_argument or
/// std::out_of_range, with the text "stoi", for a piece that is not a decimal number or does not fit.
Version versionOf(const std::string& text);

/// The tools that a platform's extended warranty lists. Their versions are read once, for any number of verdicts.
class ExtendedWarranty {
public:
    explicit ExtendedWarranty(std::vector<std::string> texts = {});
    const std::vector<std::string>& texts() const { return texts_; }
    /// Throws what `versionOf` throws for the first text that is not a version, unless one before it is the tool's.
    bool lists(const Version& tool) const;

private:
    std::vector<std::string> texts_;
    std::vector<std::pair<int, int>> versions_;  ///< sorted
    std::exception_ptr fault_;
};

/// Where the rules get their facts from. Each function is called at most once for a verdict, when the first rule needs
/// its answer; what it prints, sends or throws happens then.
class Facts {
public:
    virtual ~Facts() = default;
    /// Whether there is something to load at all; the other functions are only called if there is.
    virtual bool hasLoader() = 0;
    virtual bool load() = 0;
    /// The platform's file: of the loaded platform, or what was known of it before loading failed.
    virtual std::string filePath() = 0;
    virtual bool isPreSynth() = 0;
    virtual bool isUnified() = 0;
    /// Whether it is meant for a data centre, a managed server or an external host.
    virtual bool isForHost() = 0;
    virtual std::string platformVersion() = 0;
    virtual std::string toolVersion() = 0;
    virtual std::shared_ptr<const ExtendedWarranty> extendedWarranty() = 0;
    virtual Listing listing() = 0;
    /// Whether the verdict is on what could be: then no message is sent.
    virtual bool isSupposed() const { return false; }
};

/// Tries the rules of the question in their order, prints the line of the first that applies, and returns its verdict.
PolicyVerdict decide(PolicyQuestion question, Facts& facts);

}  // namespace policy
