#include "CommandLine.h"

#include <CLI/CLI.hpp>

#include "Console.h"
#include "Reference.h"
#include "Verbs.h"

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

/// One subcommand for each row; the chosen row goes to `chosen`.
void addVerb(CLI::App& app, const Verb& verb, Call& call, const Verb*& chosen) {
    CLI::App* command = app.add_subcommand(verb.name, verb.summary);
    for (const Positional& positional : verb.positionals) {
        const std::string name = positional.name;
        command
            ->add_option_function<std::string>(
                name, [&call, name](const std::string& value) { call.positionals[name] = value; }, positional.help)
            ->required();
    }
    for (const Option& option : verb.options) addOption(*command, option, call);
    for (const Option& option : commonOptions()) addOption(*command, option, call);
    command->footer(std::string("\n") + verb.details + "\n\nExample:\n  zr-platform " + verb.name + " " +
                    verb.example);
    command->callback([&chosen, &verb] { chosen = &verb; });
}

void write(const std::string& text) { Console::take().data(text); }

}  // namespace

int runCommandLine(int argc, char** argv) {
    CLI::App app("Finds out what FPGA acceleration platforms hold, and makes their archives.", "zr-platform");
    Call call;
    const Verb* chosen = nullptr;
    std::string reference;
    app.set_version_flag("--version", "zr-platform " ZR_VERSION);
    app.add_option("--reference", reference, "print what is made from the verbs")
        ->check(CLI::IsMember({"man", "markdown", "bash"}));
    app.footer(
        "\nExit codes: 0 done or yes, 1 the answer is no, 2 wrong use, 3 the input is missing or at fault,\n"
        "4 the environment is, 70 a fault of the tool.");
    for (const Verb& verb : verbs()) addVerb(app, verb, call, chosen);
    app.require_subcommand(0, 1);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        for (const CLI::App* command : app.get_subcommands()) return write(command->help()), 0;
        return write(app.help()), 0;
    } catch (const CLI::CallForVersion&) {
        return write("zr-platform " ZR_VERSION "\n"), 0;
    } catch (const CLI::ParseError& e) {
        Console::take().words(std::string("error: ") + e.what() + "\ntry: zr-platform " +
                              (chosen ? chosen->name : "") + (chosen ? " " : "") + "--help");
        return static_cast<int>(Exit::usage);
    }
    if (!reference.empty()) return write(referenceAs(reference)), 0;
    if (!chosen) {
        Console::take().words(app.help());
        return static_cast<int>(Exit::usage);
    }
    Console::take().configure(call);
    return chosen->run(call);
}
