#pragma once
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "kit/Cases.h"
#include "kit/CfaXml.h"
#include "kit/Hpfm.h"
#include "kit/Platforms.h"
#include "kit/Scratch.h"
#include "kit/ZipBuilder.h"

/// The text of that number of those with one value of std::hash: 16 bytes, of which the second half undoes what the first
/// one did to the hash's state.
inline const std::string& textOfOneHash(std::size_t number) {
    constexpr std::uint64_t kFactor = 0xc6a4a7935bd1e995, kStart = 0xc70f6907 ^ 16 * kFactor, kState = 1;
    std::uint64_t inverse = kFactor;
    for (int i = 0; i < 6; ++i) inverse *= 2 - kFactor * inverse;
    const auto folded = [](std::uint64_t value) { return value ^ value >> 47; };
    static std::vector<std::string> texts;
    static std::uint64_t next = 0;
    for (; texts.size() <= number; ++next) {
        std::string text(16, 'a');
        for (std::uint64_t at = 0, rest = next; rest > 0; rest /= 26) text[at++] += static_cast<char>(rest % 26);
        std::uint64_t half;
        std::memcpy(&half, text.data(), 8);
        half = (kStart ^ folded(half * kFactor) * kFactor) * kFactor ^ kState;
        half = folded(half * inverse) * inverse;
        std::memcpy(text.data() + 8, &half, 8);
        if (std::ranges::any_of(text, [](char c) { return c <= ' ' || c == '"' || c == '\\' || c == 127; })) continue;
        texts.push_back(text);
        EXPECT_EQ(std::hash<std::string>()(text), std::hash<std::string>()(texts[0]));
    }
    return texts[number];
}

/// `item` with "#" as cases/growth/cost.case says.
inline void append(std::string& text, const std::string& item, unsigned number) {
    std::size_t from = 0;
    for (auto mark = item.find('#'); mark != std::string::npos; mark = item.find('#', from)) {
        text.append(item, from, mark - from);
        from = mark + 1;
        if (item[from] == '=') {
            const auto end = item.find_first_not_of("0123456789", ++from);
            text += textOfOneHash(end == from ? number : std::stoul(item.substr(from)));
            from = end;
        } else if (item[from] == '(') {
            unsigned bits = number;
            for (++from; item[from] != ')'; ++from) {
                const bool isLetter = item[from] != '_';
                text += static_cast<char>(item[from] - (isLetter && bits & 1 ? 32 : 0));
                if (isLetter) bits /= 2;
            }
            ++from;
        } else {
            text += std::to_string(number);
        }
    }
    text.append(item, from);
}

/// Where the item ends that starts at `at`; items may contain others.
inline std::size_t endOfItem(const std::string& text, std::size_t at) {
    for (int depth = 0;; ++at) {
        at = text.find('\\', at);
        const std::string mark = text.substr(at, 2);  // throws for an item without an end
        if (mark == "\\(") ++depth;
        if (mark == "\\)" && --depth == 0) return at;
    }
}

/// The text of a line; `number` is that of growing inputs.
inline std::string expanded(const std::string& text, unsigned number) {
    std::string result;
    std::size_t from = 0;
    for (auto at = text.find("\\("); at != std::string::npos; at = text.find("\\(", from)) {
        const auto blank = text.find(' ', at), end = endOfItem(text, at);
        const bool grows = text[at + 2] == 'n', hasCommas = text[blank - 1] == ',';
        const std::string digits = text.substr(at + 2 + grows, blank - at - 2 - grows);
        const std::string item = expanded(text.substr(blank + 1, end - blank - 1), number);
        const unsigned count = static_cast<unsigned>(std::stoul(grows ? std::to_string(number) + digits : digits));
        result.append(text, from, at - from);
        const bool isByte = item.size() == 1 && !hasCommas;  // of which there may be very many
        if (isByte) result.append(count, item[0]);
        for (unsigned i = 0; i < count && !isByte; ++i) append(result, (hasCommas && i > 0 ? "," : "") + item, i);
        from = end + 2;
    }
    return result.append(text, from);
}

/// A descriptor with these elements as its hardware.
inline std::string describing(const std::string& hardware) {
    return descriptor("<teq:hardwarePlatforms>" + hardware + "</teq:hardwarePlatforms>");
}

inline std::string contentOf(const std::string& name, std::string text, unsigned number) {
    if (const auto arrow = text.find(" => "); arrow != std::string::npos) {
        const auto blank = text.find(' ');
        const std::string part = text.substr(blank + 1, arrow - blank - 1), added = text.substr(arrow + 4);
        text = contentOf(ZR_SOURCE_DIR "/tests/cases/cfa/" + text.substr(0, blank));
        text.insert(text.find(part), added);
    }
    text = expanded(text, number);
    if (name.ends_with(".hpfm")) return hpfm(text);
    return name.ends_with(".zdf") && text.starts_with("<teq:") ? describing(text) : text;
}

/// Writes the files of a case; gives the path of the first one, and the size of its text or, if larger, of the file.
inline std::pair<std::string, std::uintmax_t> writeInput(const Scratch& scratch, const cases::Case& input,
                                                         unsigned number = 0) {
    std::map<std::string, builder::Zip> archives;
    std::pair<std::string, std::uintmax_t> first;
    scratch.put("sw.spfm", kSoftware);
    for (const cases::Line& line : input.lines) {
        const auto star = line.word.find('*'), dot = line.word.find('.');
        const bool isFile = dot != std::string::npos || star != std::string::npos;
        if (!isFile) continue;
        const std::string times = star == std::string::npos ? "1" : line.word.substr(0, star);
        const unsigned count = times == "n" ? number : static_cast<unsigned>(std::stoul(times));
        const std::string text = contentOf(line.word, line.text, number);
        for (unsigned i = 0; i < count; ++i) {
            std::string name;
            append(name, line.word.substr(star + 1), i);
            const auto mark = name.find('!');
            if (first.first.empty()) first = {scratch / name.substr(0, mark), text.size()};
            if (mark != std::string::npos)
                archives[name.substr(0, mark)].entries.emplace_back(name.substr(mark + 1), text, !text.empty());
            else if (name.ends_with('/'))
                std::filesystem::create_directory(scratch / name);
            else if (text.starts_with("-> "))
                std::filesystem::create_symlink(text.substr(3), scratch / name);
            else
                scratch.put(name, text);
        }
    }
    for (auto& [name, zip] : archives) {
        zip.isZip64 = zip.entries.size() > 0xFFFF;
        scratch.put(name, zip.build());
    }
    return {first.first, std::max(first.second, std::filesystem::file_size(first.first))};
}
