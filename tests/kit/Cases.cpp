#include "kit/Cases.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <regex>

#include "kit/Files.h"
#include "kit/Run.h"
#include "kit/Scratch.h"
#include "kit/Xmllint.h"

namespace cases {
namespace {

/// A text before and after its first blank.
std::pair<std::string, std::string> parted(const std::string& text) {
    const auto blank = text.find(' ');
    return {text.substr(0, blank), blank == std::string::npos ? "" : text.substr(blank + 1)};
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) result += c == '\n' ? "\\n" : c == '\\' ? "\\\\" : std::string(1, c);
    return result;
}

/// A file of cases, which is written anew at its end when lines have changed.
class CaseFile {
public:
    explicit CaseFile(const std::string& path) : path_(path) {
        std::istringstream text(contentOf(path));
        bool isBetween = true;
        for (std::string line; std::getline(text, line); lines_.push_back(line)) {
            if (line.empty()) isBetween = true;
            if (line.empty() || line[0] == '#') continue;
            if (std::exchange(isBetween, false)) cases.emplace_back();
            const auto [word, rest] = parted(line);
            if (word == "==")
                cases.back().name = rest;
            else
                cases.back().lines.push_back({word, rest, lines_.size()});
        }
        EXPECT_FALSE(cases.empty()) << path;
    }
    ~CaseFile() {
        if (!isChanged_ || !std::getenv("ZR_UPDATE_EXPECTED")) return;
        std::string text;
        for (const std::string& line : lines_) text += line + "\n";
        write(path_, text);
    }
    CaseFile(const CaseFile&) = delete;
    CaseFile& operator=(const CaseFile&) = delete;

    /// What a line should be, as found.
    void replace(std::size_t number, const std::string& line) { isChanged_ = true, lines_.at(number) = line; }
    std::string place(std::size_t number) const { return path_ + ":" + std::to_string(number + 1); }

    std::vector<Case> cases;

private:
    std::string path_;
    std::vector<std::string> lines_;
    bool isChanged_ = false;
};

struct Document {
    const Case* of;
    std::string text;
    const Line* verdict = nullptr;
    bool isTaken = true, isTakenBySchema = true;
};

/// Replaces the first `part`, or each of them.
void edit(std::string& text, const std::string& part, const std::string& replacement, bool each) {
    std::size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << "there is no " << part;
    for (; at != std::string::npos; at = each ? text.find(part, at + replacement.size()) : std::string::npos)
        text.replace(at, part.size(), replacement);
}

Document documentOf(const Case& of, std::string& base, const std::string& folder) {
    SCOPED_TRACE(of.name);
    Document document{&of, "", nullptr};
    std::optional<std::string> part, added;
    bool each = false;
    for (const Line& line : of.lines) {
        const auto append = [&](std::optional<std::string>& to) { to = (to ? *to + "\n" : "") + plain(line.text); };
        if (line.word == "base") {
            base = contentOf(folder + "/" + line.text);
            EXPECT_NE(base, "") << line.text;
        } else if (line.word == "-" || line.word == "--") {
            each = line.word == "--";
            append(part);
        } else if (line.word == "+") {
            append(added);
        } else if (line.word == "=" || line.word == "!") {
            document.verdict = &line;
            document.isTaken = document.isTakenBySchema = line.word == "=";
        } else if (line.word == "schema") {
            document.isTakenBySchema = line.text[0] == '=';
        } else {
            ADD_FAILURE() << line.word << " " << line.text;
        }
    }
    document.text = part || !added ? base : *added;
    if (part) edit(document.text, *part, added.value_or(""), each);
    EXPECT_TRUE(document.verdict) << "no verdict";
    return document;
}

/// Whether the verdict's line fits the first fault.
bool fits(const std::string& verdict, const Fault& fault) {
    static const std::regex form(R"(([a-z-]*) ?(\d+:\d+)? ?(?:<([^>]*)> ?(.*))?)");
    std::smatch part;
    if (!std::regex_match(verdict, part, form)) return false;
    const auto agrees = [&](int number, const std::string& is) {
        return !part[number].length() || part[number] == is;
    };
    return agrees(1, fault.name) && agrees(2, std::to_string(fault.line) + ":" + std::to_string(fault.column)) &&
           (!part[3].matched || part[3] == fault.element) && fault.text.find(plain(part[4])) != std::string::npos;
}

void expectVerdicts(const std::string& path, const Format& format) {
    CaseFile file(path);
    std::string base;
    std::vector<Document> documents;
    std::vector<std::string> texts;
    for (const Case& each : file.cases) {
        documents.push_back(documentOf(each, base, std::filesystem::path(path).parent_path()));
        texts.push_back(documents.back().text);
    }
    const std::vector<bool> valid = validBy(format.schema, texts);
    for (std::size_t i = 0; i < documents.size(); ++i) {
        const Document& document = documents[i];
        if (!document.verdict) continue;
        SCOPED_TRACE(file.place(document.verdict->number) + ": " + document.of->name);
        const std::vector<Fault> faults = format.check(document.text);
        std::string found = "=";
        if (!faults.empty()) {
            const Fault& first = faults.front();
            found = "! " + first.name + " " + std::to_string(first.line) + ":" + std::to_string(first.column) + " <" +
                    first.element + "> " + escaped(first.text);
        }
        const bool isRight =
            document.isTaken ? faults.empty() : !faults.empty() && fits(document.verdict->text, faults.front());
        EXPECT_TRUE(isRight) << "found: " << found;
        if (!isRight) file.replace(document.verdict->number, found);
        EXPECT_EQ(valid[i], document.isTakenBySchema) << "xmllint";
    }
}

/// One run's output or its error output against a line.
void expectText(CaseFile& file, const Line& line, const std::string& found) {
    const char kind = line.word.size() == 3 ? ' ' : line.word[3];
    if (kind == '=' && plain(line.text) != found) file.replace(line.number, line.word + " " + escaped(found));
    if (kind == '=') {
        EXPECT_EQ(found, plain(line.text));
    } else if (kind == '~') {
        EXPECT_TRUE(std::regex_match(found, std::regex(line.text))) << found;
    } else {
        EXPECT_THAT(found, testing::HasSubstr(plain(line.text)));
    }
}

}  // namespace

std::string plain(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char c = text[++i];
        if (c == '(') {
            const auto blank = text.find(' ', i), end = text.find("\\)", blank);
            result += repeated(plain(text.substr(blank + 1, end - blank - 1)), std::stoul(text.substr(i + 1)));
            i = end + 1;
            continue;
        }
        const bool isByte = c == 'x';
        result += c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c;
        if (isByte) result.back() = static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
        if (isByte) i += 2;
    }
    return result;
}

std::vector<Case> read(const std::string& file) { return CaseFile(file).cases; }

void expectVerdicts(const std::string& folder, const std::function<Format(const std::string& file)>& formatOf) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".case") expectVerdicts(entry.path(), formatOf(entry.path().stem()));
}

void expectRuns(const std::string& path, const std::string& programs,
                const std::vector<std::pair<std::string, std::string>>& variables) {
    CaseFile file(path);
    auto environment = variables;
    environment.emplace_back("PATH", programs + ":" + std::getenv("PATH"));
    for (const Case& each : file.cases) {
        const Scratch scratch;
        Result result{0, "", ""};
        bool isExpected = true;  // the exit code
        const auto expectSuccess = [&] { EXPECT_TRUE(isExpected || result.exit == 0) << result.exit << result.err; };
        for (const Line& line : each.lines) {
            SCOPED_TRACE(file.place(line.number) + ": " + each.name);
            if (line.word == "file") {
                const auto [name, text] = parted(line.text);
                scratch.put(name, plain(text));
            } else if (line.word == "$") {
                expectSuccess();
                result = run({"sh", "-c", line.text}, scratch.str(), environment);
                isExpected = false;
            } else if (line.word == "exit") {
                isExpected = true;
                EXPECT_EQ(std::to_string(result.exit), line.text) << result.err;
                if (std::to_string(result.exit) != line.text)
                    file.replace(line.number, "exit " + std::to_string(result.exit));
            } else if (line.word.starts_with("out") || line.word.starts_with("err")) {
                expectText(file, line, line.word[0] == 'o' ? result.out : result.err);
            } else {
                ADD_FAILURE() << line.word;
            }
        }
        SCOPED_TRACE(each.name);
        expectSuccess();
    }
}

void expectTexts(const std::string& path,
                 const std::function<std::string(const std::string& name, const std::string& text)>& made) {
    CaseFile file(path);
    for (const Case& each : file.cases) {
        std::string text, expected;
        const Line* last = nullptr;
        const auto expect = [&](const std::string& given, const std::string& wanted, const std::string& line) {
            SCOPED_TRACE(file.place(last->number) + ": " + each.name);
            const std::string found = made(each.name, given);
            EXPECT_EQ(found, wanted);
            if (found != wanted) file.replace(last->number, line + escaped(found));
        };
        for (const Line& line : each.lines) {
            const auto arrow = line.text.rfind(" -> ");
            if (line.word != "|") {
                (line.word == ">" ? text : expected) += plain(line.text) + (line.word == ">" ? "\n" : "");
            } else if (last = &line; arrow == std::string::npos) {
                ADD_FAILURE() << line.text;
            } else {
                const std::string given = line.text.substr(0, arrow), wanted = line.text.substr(arrow + 4);
                expect(plain(given), plain(wanted), "| " + given + " -> ");
            }
        }
        if (last) continue;
        last = &each.lines.back();
        expect(text, expected, "< ");
    }
}

}  // namespace cases
