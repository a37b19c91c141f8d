#include <platform/PlatformInfo.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"
#include "Text.h"

namespace requests = teq_platform::requests;
using requests::Answer;

namespace {

boost::json::value valueOf(const Answer& answer) {
    switch (answer.kind) {
        case Answer::Kind::list: return boost::json::array(answer.values.begin(), answer.values.end());
        case Answer::Kind::flag: return answer.values.front() == "true";
        case Answer::Kind::number: return HSTStringUtils::toNumber(answer.values.front());
        case Answer::Kind::text: return boost::json::value(answer.values.front());
    }
    return nullptr;
}

}  // namespace

int runInfo(const Call& call) {
    const auto platform = loaded(platformFile(call["FILE"], call), call, true);
    Text text(false);
    boost::json::object record;
    text.heading("Platform " + platform->getPlatformBaseName());
    for (const Answer& answer : requests::answers(*platform)) {
        text.line(answer.name, HSTStringUtils::join(answer.values, ", "));
        record[answer.name] = valueOf(answer);
    }
    if (!Records::areAsked(call)) return Console::take().data(text.str()), 0;
    Records records("platform-info");
    records.add(std::move(record));
    records.print(call, {});
    return 0;
}

int runBoards(const Call& call) {
    const requests::Boards found = requests::boards(call.values("repo"));
    Records records("board");
    std::vector<std::vector<std::string>> rows;
    for (const requests::Board& board : found.boards) {
        boost::json::array connectors;
        constexpr std::size_t kMaxCell = 1000;  // of what each row repeats
        const std::string part = HSTStringUtils::cut(board.part, kMaxCell);
        const std::string boardName = HSTStringUtils::cut(board.name, kMaxCell);
        if (board.connectors.empty()) rows.push_back({part, boardName, "", "", "", ""});
        for (const auto& [name, displayName, type, isDimm, fits] : board.connectors) {
            rows.push_back({part, boardName, name, displayName, type, HSTStringUtils::join(fits, ", ")});
            connectors.push_back(boost::json::object{{"name", name},
                                                     {"displayName", displayName},
                                                     {"type", type},
                                                     {"dimm", isDimm},
                                                     {"fits", boost::json::array(fits.begin(), fits.end())}});
        }
        records.add({{"part", board.part},
                     {"name", board.name},
                     {"file", board.file},
                     {"connectors", std::move(connectors)}});
    }
    for (const HEXDiagnostic& problem : found.problems) {
        records.addProblem(problem);
        Console::take().print(problem, "warning");
    }
    if (Records::areAsked(call))
        records.print(call, {});
    else
        Console::take().data(table({"part", "board", "connector", "display name", "type", "fits"}, rows));
    return 0;
}
