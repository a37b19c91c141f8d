#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "Console.h"
#include "Reference.h"
#include "Verbs.h"

#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>

namespace {

std::vector<std::string> choicesOf(const Option& option) {
    std::vector<std::string> choices;
    std::stringstream text(option.choices);
    for (std::string choice; std::getline(text, choice, '|');) choices.push_back(choice);
    return choices;
}

void addOption(CLI::App& app, const Option& option, Call& call) {
    const std::string name = std::string("--") + option.name;
    const auto keep = [&call, key = std::string(option.name)](const std::string& value) {
        call.options[key] = value;
    };
    if (!option.choices) {
        app.add_flag_callback(
            name, [keep] { keep(""); }, option.help);
        return;
    }
    const std::vector<std::string> choices = choicesOf(option);
    CLI::Option* made = app.add_option_function<std::string>(name, keep, option.help);
    if (choices.size() > 1) made->check(CLI::IsMember(choices));
}

void addPositional(CLI::App& app, const Positional& positional, Call& call) {
    const std::string name = positional.name;
    auto& values = call.positionals[name];
    if (name.ends_with("..."))
        app.add_option(name.substr(0, name.find('.')), values, positional.help)->required();
    else if (name.starts_with("["))
        app.add_option_function<std::string>(
            name.substr(1, name.size() - 2), [&values](const std::string& value) { values = {value}; },
            positional.help);
    else
        app.add_option_function<std::string>(
               name, [&values](const std::string& value) { values = {value}; }, positional.help)
            ->required();
}

/// One subcommand for each row; the chosen row goes to `chosen`.
void addVerb(CLI::App& app, const Verb& verb, Call& call, const Verb*& chosen) {
    CLI::App* command = app.add_subcommand(verb.name, verb.summary);
    for (const Positional& positional : verb.positionals) addPositional(*command, positional, call);
    for (const Option& option : verb.options) addOption(*command, option, call);
    for (const Option& option : commonOptions()) addOption(*command, option, call);
    command->footer(std::string("\n") + verb.details + "\n\nExample:\n  zr-platform " + verb.name + " " +
                    verb.example);
    command->callback([&chosen, &verb] { chosen = &verb; });
}

/// What is wrong with the arguments, in one line.
std::string complaint(const CLI::ParseError& error, const std::string& first) {
    std::vector<std::string> names;
    for (const Verb& verb : verbs()) names.push_back(verb.name);
    const bool isVerb = std::find(names.begin(), names.end(), first) != names.end();
    if (isVerb || first.empty() || first.starts_with("-")) return error.what();
    return "there is no verb '" + HSTStringUtils::printable(first) + "'" + teq_platform::requests::nearest(first, names);
}

void write(const std::string& text) { Console::take().data(text); }

}  // namespace

int runCommandLine(int argc, char** argv) {
    CLI::App app("Finds out what FPGA acceleration platforms hold, and makes their archives.", "zr-platform");
    for (const char* word : {"TEXT", "REQUIRED"}) app.get_formatter()->label(word, "");
    app.get_formatter()->label("[SUBCOMMAND]", "VERB");
    app.get_formatter()->label("Subcommands", "Verbs");
    Call call;
    const Verb* chosen = nullptr;
    std::string reference;
    app.set_version_flag("--version", "zr-platform " ZR_VERSION);
    app.add_option("--reference", reference, "print what is made from the tables")
        ->check(CLI::IsMember({"man", "markdown", "bash", "findings"}));
    app.footer(
        "\nExit codes: 0 done or yes, 1 the answer is no, 2 wrong use, 3 the input is missing or at fault,\n"
        "4 the environment is, 70 a fault of the tool.");
    for (const Verb& verb : verbs()) addVerb(app, verb, call, chosen);
    app.require_subcommand(0, 1);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        for (const CLI::App* command : app.get_subcommands()) return write(command->help("zr-platform")), 0;
        return write(app.help()), 0;
    } catch (const CLI::CallForVersion&) {
        return write("zr-platform " ZR_VERSION "\n"), 0;
    } catch (const CLI::ParseError& e) {
        Console::take().note("error: " + complaint(e, argc > 1 ? argv[1] : "") + "\ntry: zr-platform " +
                              (chosen ? std::string(chosen->name) + " " : "") + "--help");
        return static_cast<int>(Exit::usage);
    }
    if (!reference.empty()) return write(referenceAs(reference)), 0;
    if (!chosen) {
        Console::take().note(app.help());
        return static_cast<int>(Exit::usage);
    }
    Console::take().configure(call);
    const teq_platform::requests::Scope request;
    return chosen->run(call);
}
