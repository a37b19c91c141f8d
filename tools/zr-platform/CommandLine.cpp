#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/property_tree/exceptions.hpp>
#include <optional>

#include "Completion.h"
#include "Console.h"
#include "Reference.h"
#include "StandardInput.h"
#include "Verbs.h"

#include <msg/HEXFileFault.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>

namespace {

constexpr std::size_t kHelpColumn = 30;  // where CLI11 prints help texts

/// For printing from the column `indent` to the edge of the terminal.
std::string filled(std::string_view text, std::size_t indent) {
    return wrapped(text, std::max(Console::take().width(), 2 * indent) - indent);
}

/// A command, continued with backslashes where a line is too long.
std::string commandLines(const std::string& text) {
    std::string lines = wrapped(text, Console::take().width() - 4, "    ");
    for (auto at = lines.find('\n'); at != std::string::npos; at = lines.find('\n', at + 3)) lines.insert(at, " \\");
    return "  " + lines;
}

std::vector<std::string> choicesOf(const Option& option) {
    std::vector<std::string> choices;
    std::stringstream text(option.choices);
    for (std::string choice; std::getline(text, choice, '|');) choices.push_back(choice);
    return choices;
}

void addOption(CLI::App& app, const Option& option, Call& call) {
    const std::string name = std::string("--") + option.name;
    const auto keep = [&call, key = std::string(option.name)](const std::string& value) {
        call.options[key].push_back(value);
    };
    if (!option.choices) {
        app.add_flag_callback(
            name, [keep] { keep(""); }, filled(option.help, kHelpColumn));
        return;
    }
    const std::vector<std::string> choices = choicesOf(option);
    const bool isRepeated = std::string_view(option.choices).ends_with("...");
    CLI::Option* made = app.add_option_function<std::vector<std::string>>(
        name, [keep](const std::vector<std::string>& values) { std::for_each(values.begin(), values.end(), keep); },
        filled(option.help, kHelpColumn));
    const std::string kind = option.choices;
    made->type_name(isRepeated ? kind.substr(0, kind.find('.')) : kind)->allow_extra_args(false);
    if (!isRepeated) made->expected(1);
    if (choices.size() > 1) made->check(CLI::IsMember(choices).description(""));
}

void addPositional(CLI::App& app, const Positional& positional, Call& call) {
    const std::string name = positional.name;
    const std::string help = filled(positional.help, kHelpColumn);
    auto& values = call.positionals[name];
    if (name.ends_with("...]"))
        app.add_option(name.substr(1, name.find('.') - 1), values, help);
    else if (name.ends_with("..."))
        app.add_option(name.substr(0, name.find('.')), values, help)->required();
    else if (name.starts_with("["))
        app.add_option_function<std::string>(
            name.substr(1, name.size() - 2), [&values](const std::string& value) { values = {value}; }, help);
    else
        app.add_option_function<std::string>(
               name, [&values](const std::string& value) { values = {value}; }, help)
            ->required();
}

/// One subcommand for each row; the chosen row goes to `chosen`. One that no argument names has no options: to make those
/// of all verbs takes 0.7 ms.
void addVerb(CLI::App& app, const Verb& verb, bool isNamed, Call& call, const Verb*& chosen) {
    CLI::App* command = app.add_subcommand(verb.name, filled(verb.summary, kHelpColumn));
    command->group("Verbs");
    if (!isNamed) return;
    for (const Positional& positional : verb.positionals) addPositional(*command, positional, call);
    for (const Option& option : verb.options) addOption(*command, option, call);
    for (const Option& option : commonOptions()) addOption(*command, option, call);
    command->footer("\n" + filled(verb.details, 0) + "\n\nExample:\n" +
                    commandLines(std::string("zr-platform ") + verb.name + " " + verb.example));
    command->callback([&chosen, &verb] { chosen = &verb; });
}

/// The verb of the arguments; null if there is none.
const Verb* verbOf(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments)
        for (const Verb& verb : verbs())
            if (verb.name == argument) return &verb;
    return nullptr;
}

/// The first argument that looks like an option but is unknown; empty if there is none.
std::string unknownOption(const std::vector<std::string>& arguments, const std::vector<std::string>& known) {
    for (const std::string& argument : arguments) {
        if (argument == "--") break;
        std::string name = argument.substr(0, argument.find('='));
        if (name.size() > 1 && name.starts_with("-") && std::find(known.begin(), known.end(), name) == known.end())
            return name;
    }
    return {};
}

/// What is wrong with the arguments, on one line.
std::string usageError(const CLI::ParseError& error, const std::vector<std::string>& arguments) {
    using teq_platform::requests::nearest;
    HSTVector<std::string> names{"--help", "-h", "--version", "-V", "--reference"};
    const Verb* const verb = verbOf(arguments);
    if (verb)
        for (const Option& option : verb->options) names.push_back(std::string("--") + option.name);
    for (const Option& option : commonOptions()) names.push_back(std::string("--") + option.name);
    if (const std::string option = unknownOption(arguments, names); !option.empty())
        return "unknown option '" + HSTStringUtils::printable(option) + "'" + nearest(option, names) +
               (option.starts_with("--") ? "" : "; a file of this name must follow --");
    if (verb || arguments.empty() || arguments.front().starts_with("-")) return error.what();
    names.clear();
    for (const Verb& one : verbs()) names.push_back(one.name);
    return "unknown verb '" + HSTStringUtils::printable(arguments.front()) + "'" + nearest(arguments.front(), names);
}

/// "help VERB" is "VERB --help".
std::vector<std::string> argumentsOf(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty() || arguments.front() != "help") return arguments;
    arguments.erase(arguments.begin());
    arguments.push_back("--help");
    return arguments;
}

void write(const std::string& text) { Console::take().data(text); }

/// The first file that is read; empty if there is none.
std::string inputOf(const Verb& verb, const Call& call) {
    static constexpr std::string_view kOthers[] = {"", "OUT", "create|list|add|extract", "pack|print"};
    const auto isFile = [](const Positional& one) {
        return std::ranges::find(kOthers, one.values) == std::end(kOthers);
    };
    const auto input = std::ranges::find_if(verb.positionals, isFile);
    return input == verb.positionals.end() ? "" : call.get(input->name, "");
}

/// A fault that names no file gets that of the call; paths in its folder are shown as that is written.
int run(const Verb& verb, const Call& call) {
    const std::string file = inputOf(verb, call);
    Console::take().nameInput(file);
    try {
        return verb.run(call);
    } catch (const std::exception& e) {
        const bool isOfFile =
            dynamic_cast<const HEXFileFault*>(&e) || dynamic_cast<const boost::property_tree::ptree_error*>(&e);
        if (!isOfFile) throw;
        const teq_platform::Failure failure = teq_platform::currentFailure(file);
        throw teq_platform::RequestError(failure.kind, failure.diagnostic);
    }
}

}  // namespace

int runCommandLine(int argc, char** argv) {
    std::vector<std::string> arguments = argumentsOf(argc, argv);
    if (arguments.size() > 1 && arguments[0] == "--complete" && arguments[1] == "--")
        return write(completionOf({arguments.begin() + 2, arguments.end()})), 0;
    for (std::size_t i = 0; i < arguments.size() && arguments[i] != "--"; ++i)
        if (arguments[i] == "--messages=json" ||
            (arguments[i] == "--messages" && i + 1 < arguments.size() && arguments[i + 1] == "json"))
            Console::take().useJsonMessages();
    CLI::App app("Inspects, checks and packs FPGA acceleration platforms.", "zr-platform");
    for (const char* label : {"TEXT", "REQUIRED"}) app.get_formatter()->label(label, "");
    app.get_formatter()->column_width(kHelpColumn);
    app.get_formatter()->label("SUBCOMMAND", "VERB");
    Call call;
    const Verb* chosen = nullptr;
    std::string reference;
    app.set_version_flag("-V,--version", "zr-platform " ZR_VERSION);
    app.add_option("--reference", reference, "print a reference generated from the tables")
        ->type_name("FORM")
        ->check(CLI::IsMember(referenceForms()).description(""));
    for (const Option& option : commonOptions()) addOption(app, option, call);
    app.footer("\n" + filled(kExitCodes, 0));
    for (const Verb& verb : verbs())
        addVerb(app, verb, std::ranges::find(arguments, verb.name) != arguments.end(), call, chosen);
    app.require_subcommand(0, 1);
    try {
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());  // as CLI11 takes them
        app.parse(reversed);
    } catch (const CLI::CallForHelp&) {
        for (const CLI::App* command : app.get_subcommands()) return write(command->help("zr-platform")), 0;
        return write(app.help()), 0;
    } catch (const CLI::CallForVersion&) {
        return write("zr-platform " ZR_VERSION "\n"), 0;
    } catch (const CLI::ParseError& e) {
        const Verb* const verb = verbOf(arguments);
        Console::take().print({.text = usageError(e, arguments)}, "error");
        Console::take().note("try: zr-platform " + (verb ? std::string(verb->name) + " " : "") + "--help");
        return static_cast<int>(Exit::usage);
    }
    if (!reference.empty()) return write(referenceAs(reference)), 0;
    if (!chosen) {
        Console::take().note(app.help());
        return static_cast<int>(Exit::usage);
    }
    Console::take().configure(call);
    std::optional<teq_platform::requests::Scope> request;
    std::optional<teq_platform::requests::SharedScope> requests;
    if (chosen->isManyRequests)
        requests.emplace();
    else
        request.emplace();
    StandardInput input;
    input.replace(*chosen, call);
    const int exit = run(*chosen, call);
    if (exit == static_cast<int>(Exit::done)) {
        teq_platform::checkSystem();  // the output may lack something
        if (!chosen->isManyRequests) Console::take().warnOfFaults();
    }
    return exit == static_cast<int>(Exit::input) && teq_platform::systemFailed() ? static_cast<int>(Exit::environment)
                                                                                 : exit;
}
