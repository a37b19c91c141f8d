// Files made from others: labels, create-fixed, from-hdf, check-rm, emu-convert.
#include <platform/DerivedFiles.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"
#include "Output.h"

namespace requests = teq_platform::requests;

namespace {

teq_platform::requests::Labels labelsOf(const Call& call) {
    return {.file = call["FILE"],
            .partitionMetadata = call.get("partition-metadata"),
            .extMetadata = call.get("ext-metadata"),
            .partition = call.has("partition") ? call.get("partition") : "/",
            .mayReplace = call.has("force"),
            .dryRun = call.has("dry-run")};
}

[[noreturn]] void wrongUse(const std::string& text) {
    throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse, {.text = text});
}

/// Calls `write` with the file for an output, which is empty for none, in place of "-".
void toOutput(std::string& output, bool mayReplace, const std::function<void()>& write) {
    if (output.empty()) return write();
    const std::string destination = output;
    writeTo(destination, mayReplace, "json", [&](const std::string& path, bool) {
        output = path;
        write();
    });
}

}  // namespace

int runLabels(const Call& call) {
    requests::Labels request = labelsOf(call);
    if (call.has("partition") && request.extMetadata.empty()) wrongUse("--partition is for --ext-metadata");
    if (request.partitionMetadata.empty() && request.extMetadata.empty()) {
        if (call.has("ndjson")) wrongUse("--ndjson describes what is written: name an output");
        Console::take().document(requests::labels(request));
        return 0;
    }
    if (request.partitionMetadata == "-" && request.extMetadata == "-")
        wrongUse("both documents have the same destination");
    const WrittenFiles written(call, {request.partitionMetadata, request.extMetadata});
    toOutput(request.partitionMetadata, request.mayReplace,
             [&] { toOutput(request.extMetadata, request.mayReplace, [&] { requests::labels(request); }); });
    written.report();
    return 0;
}

int runCreateFixed(const Call& call) {
    const WrittenFiles written(call, {call["ARCHIVE"]});
    requests::FixedArchive request{.archive = "", .files = {}, .dryRun = call.has("dry-run")};
    for (const std::string& text : call.all("[FILE...]")) request.files.push_back(requests::namedFile(text));
    writeTo(call["ARCHIVE"], call.has("force"), "lfa", [&](const std::string& path, bool mayReplace) {
        request.archive = path;
        request.mayReplace = mayReplace;
        requests::createFixed(request);
    });
    written.report();
    return 0;
}

int runFromHdf(const Call& call) {
    const WrittenFiles written(call, {call["ARCHIVE"]});
    writeTo(call["ARCHIVE"], call.has("force"), "lfa", [&](const std::string& path, bool mayReplace) {
        requests::fromDefinition(
            {.definition = call["HDF"], .archive = path, .mayReplace = mayReplace, .dryRun = call.has("dry-run")});
    });
    written.report();
    return 0;
}

int runCheckRm(const Call& call) {
    Records records("module");
    std::string text;
    Exit exit = Exit::done;
    for (const requests::ModuleFit& fit : requests::moduleFits(call["STATIC"], call.all("MODULE..."))) {
        if (!fit.fits) exit = Exit::no;
        text +=
            HSTStringUtils::printable(fit.file) + ": " + (fit.fits ? "fits" : "does not fit: " + fit.reason) + "\n";
        records.add({{"file", fit.file}, {"nodeId", fit.nodeId}, {"fits", fit.fits}, {"reason", fit.reason}});
    }
    if (Records::areAsked(call))
        records.print(call, {});
    else
        Console::take().data(text);
    return static_cast<int>(exit);
}

int runEmuConvert(const Call& call) {
    const WrittenFiles written(call, {call["OUT"]});
    const std::string extension = call["IN"].ends_with(".xml") ? "json" : "xml";
    HSTVector<std::string> losses;
    writeTo(call["OUT"], call.has("force"), extension, [&](const std::string& path, bool mayReplace) {
        losses = requests::convertEmulation(
            {.file = call["IN"], .destination = path, .mayReplace = mayReplace, .dryRun = call.has("dry-run")});
    });
    written.report(call["IN"], {losses.begin(), losses.end()});
    return 0;
}
