#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Cases as text: files `tests/cases/FOLDER/*.case`. A blank line ends a case, "== NAME" names it, "#" begins a comment.
/// In a text, \n, \t, \r, \\ and \xNN stand for a byte, "\(N TEXT\)" for N times a
/// text. With ZR_UPDATE_EXPECTED set, verdicts and exact outputs that
/// differ are rewritten in the file.
namespace cases {

struct Line {
    std::string word, text;
    std::size_t number;  ///< in the file, from 0
};
struct Case {
    std::string name;
    std::vector<Line> lines;
};

std::vector<Case> read(const std::string& file);
/// The text that an escaped one stands for.
std::string plain(const std::string& text);

/// A fault that a reader finds in a document.
struct Fault {
    std::string name;  ///< "bad-value"
    std::uint64_t line, column;
    std::string element, text;
};

struct Format {
    std::function<std::vector<Fault>(const std::string& document)> check;
    std::string schema;
};

/// Documents and what the reader and xmllint find in them. A case is
///     base FILE       the document that this and the following cases change, a file beside the case file
///     - TEXT          its first TEXT, or with "--" each, which must be there, ...
///     + TEXT          ... gives way to this one; several lines of one kind are one text; without "-" the document
///     = | ! [NAME] [LINE:COLUMN] [<ELEMENT> WORDS]
///                     the verdict: taken, or refused, as both find; the text after "!" is of the first error,
///                     WORDS a part of its text
///     schema = | !    what xmllint finds instead, followed by the reason
void expectVerdicts(const std::string& folder, const std::function<Format(const std::string& file)>& formatOf);

/// Runs of programs in a shell, in a new directory for each case, with `path` first among the directories of programs:
///     file NAME TEXT  writes a file
///     $ COMMAND       runs it; what follows is of this run
///     exit CODE       without this line 0
///     out TEXT, err TEXT      a part of the output; "out~ EXPRESSION" matches all of it; "out= TEXT" is all of it
/// `variables` are set for the commands.
void expectRuns(const std::string& file, const std::string& path,
                const std::vector<std::pair<std::string, std::string>>& variables);

/// Texts that a function makes of others: "> LINE" is given to it with the case's name, "< LINE" is what comes out, whose
/// lines are joined without an end. "| GIVEN -> MADE" has both on one line.
void expectTexts(const std::string& file,
                 const std::function<std::string(const std::string& name, const std::string& text)>& made);

}  // namespace cases
