#pragma once
#include <boost/property_tree/ptree.hpp>
#include <string>

#include "platform/CatalogService.h"
#include "platform/SupportPolicy.h"
#include "text/ZrApi.h"

class HTEQHardwarePlatform;

namespace teq::platform {

/// What each platform is, as a flat report, and whether this release of the tool may use it (docs/policy.md).
///
/// A report is JSON with texts as its only values. Failures print a line on standard output and give an empty text or
/// false; exceptions of a loader pass.
class ZR_API NativeCatalogService : public CatalogService {
public:
    using ptree = boost::property_tree::ptree;

    /// An object with the one key "platforms": the reports of the descriptors in the directories, which are joined by
    /// ":". What cannot be loaded, and the hidden platform, is left out; a descriptor that is not valid throws.
    std::string getAllAsJsonStr(const std::string& paths, bool detailed, bool unused) const override;
    /// The report of one platform; empty if there is none.
    std::string getAsJsonStr(const std::string& file, bool detailed, bool unused) const override;
    std::string getAsJsonStr(Loader* loader, bool detailed, bool unused) const override;
    /// The value of one key of the detailed report; empty for a key that has further keys. An unknown key prints a line.
    std::string getValue(const std::string& file, const std::string& key) const override;
    std::string getValue(Loader* loader, const std::string& key) const override;

    /// Whether the platform is in the state before synthesis.
    bool isPreSynthPlatform(Loader* loader) const;
    /// Fills `report`; false, with `report` unchanged, if there is none. A platform without hardware has none.
    bool getPlatformInfo_(Loader* loader, ptree& report, bool detailed) const;

    /// @name The support policy
    /// `reason` is only set where the answer needs explaining. A version that is not a number throws
    /// std::invalid_argument, one that does not fit std::out_of_range.
    /// @{
    /// Whether the tool may use the platform. A product name is given to `HUTEnv`, and stays there; the exception list
    /// is compared with the product of the application root.
    bool isUnderWarranty(Loader* loader, std::string& reason, const std::string& productName) const;
    bool isUnderWarranty(const std::string& file, std::string& reason, const std::string& productName) const;
    /// Whether it may use it as a platform before synthesis.
    bool isPreSynthPlatformSupported(Loader* loader, std::string& reason) const;
    bool isPreSynthPlatformSupported(const std::string& file, std::string& reason) const;
    /// Whether it may open the hardware platform at all.
    bool canCfaBeOpened(Loader* loader, std::string& reason) const;
    bool canCfaBeOpened(const std::string& file, std::string& reason) const;
    /// The verdict on a question with the rules that were tried.
    PolicyVerdict judge(PolicyQuestion question, Loader* loader, const std::string& productName = "") const;

    /// How the exception list marks the platform: 0 on the black list, 1 on the white list, 2 without a usable list,
    /// 3 on neither. `reason` is set to that of the entry. Application root and product of the first call apply to the
    /// whole process.
    int getColor(Loader* loader, std::string& reason) const;
    /// The version that the hardware was made for. False, with 0, 0 and an empty text, for null.
    static bool getPlatformVersion(const HTEQHardwarePlatform* hardware, std::string& text, int& major, int& minor);
    /// Of the tool, as "2026.2".
    std::string getCompilerVersion_() const;
    /// Replaces it; empty restores it.
    void setTestCompilerVersion_(const std::string& version) { testCompilerVersion_ = version; }
    /// @}

private:
    std::string testCompilerVersion_;
};

}  // namespace teq::platform
