#pragma once
#include <map>
#include <sstream>
#include <string>

#include "kit/Platforms.h"
#include "kit/Run.h"
#include "kit/Scratch.h"

/// Makes the files of an explanation's sample; gives the path of `file`.
inline std::string made(const Scratch& scratch, const std::string& file, const std::string& sample) {
    if (!sample.starts_with("== ")) return scratch.put(file, sample);
    constexpr std::string_view kChanged = " (changed after packing)";
    std::map<std::string, std::map<std::string, std::string>> archives;
    std::string changed, renamed, name;
    std::map<std::string, std::string> texts;
    std::istringstream lines(sample);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("== ")) {
            texts[name] += line + "\n";
            continue;
        }
        name = line.substr(3);
        if (name.ends_with(kChanged)) {
            name.resize(name.size() - kChanged.size());
            changed = name.substr(0, name.find('!'));
        }
        if (const auto as = name.find(" (as "); as != std::string::npos) {
            renamed = name.substr(as + 5, name.size() - as - 6);
            name.resize(as);
        }
    }
    for (const auto& [path, text] : texts) {
        const auto mark = path.find('!');
        if (mark == std::string::npos)
            scratch.put(path, text);
        else
            archives[path.substr(0, mark)][path.substr(mark + 1)] = text;
    }
    for (const auto& [archive, members] : archives) packed(scratch, archive, members);
    if (!renamed.empty()) {  // in place, from "up/..." to "../..."
        const std::string was = "up" + renamed.substr(2);
        std::string bytes = contentOf(scratch / file);
        for (std::size_t at; (at = bytes.find(was)) != std::string::npos;) bytes.replace(at, was.size(), renamed);
        scratch.put(file, bytes);
    }
    if (!changed.empty()) {
        std::string bytes = contentOf(scratch / changed);
        const std::size_t data = 30 + static_cast<unsigned char>(bytes[26]) + static_cast<unsigned char>(bytes[28]);
        bytes[data] ^= 0x55;
        scratch.put(changed, bytes);
    }
    return scratch / file;
}
