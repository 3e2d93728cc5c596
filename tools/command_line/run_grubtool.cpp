#include "run_grubtool.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "command_lists.h"

namespace grub {

namespace {

constexpr int kWrongUsage = 2;

std::vector<Command> allCommands() {
    std::vector<Command> all;
    for (auto* list : {packCommands, levelCommands, checkCommands, bookCommands, renderCommands, pageCommands,
                       synthCommands, captureCommands, playCommands, traceCommands, solveCommands})
        std::ranges::move(list(), std::back_inserter(all));
    return all;
}

/// The last word of a command's name, and the group before it; empty for a command without a group.
std::pair<std::string, std::string> wordAndGroup(const Command& command) {
    const std::string name(command.name);
    const auto blank = name.find(' ');
    if (blank == std::string::npos) return {name, ""};
    return {name.substr(blank + 1), name.substr(0, blank)};
}

/// CLI11 by itself takes an empty word for 0, "010" for 8, and blanks and signs.
void takeNumber(CLI::Option& option, std::uint32_t least, std::uint32_t most) {
    const std::string limits = std::to_string(least) + " to " + std::to_string(most);
    const auto fault = [least, most, limits](const std::string& text) {
        const auto value = numberIn<std::uint32_t>(text);
        const bool isGood = value && *value >= least && *value <= most;
        return isGood ? std::string() : "'" + text + "' is not a number from " + limits;
    };
    option.type_name(limits)->check(CLI::Validator(fault, ""));
}

void addParameter(CLI::App& app, const Parameter& parameter) {
    if (parameter.takes == Parameter::Takes::Nothing) {
        app.add_flag(parameter.name, parameter.help);
        return;
    }
    CLI::Option* const added = app.add_option(parameter.name)->description(parameter.help);
    added->required(parameter.isRequired)->type_name(parameter.name[0] == '-' ? "TEXT" : "");
    if (parameter.takes == Parameter::Takes::Texts)
        added->allow_extra_args()->expected(parameter.isRequired ? 1 : 0, -1);
    if (parameter.takes == Parameter::Takes::Number) takeNumber(*added, parameter.least, parameter.most);
}

Arguments argumentsOf(const CLI::App& app, const Command& command) {
    std::map<std::string, std::vector<std::string>> given;
    for (const Parameter& parameter : command.parameters)
        given.emplace(parameter.name, app.get_option(parameter.name)->results());
    return Arguments(std::move(given));
}

void addCommand(CLI::App& parent, const std::string& word, const Command& command) {
    CLI::App* const app = parent.add_subcommand(word, std::string(command.help));
    for (const Parameter& parameter : command.parameters) addParameter(*app, parameter);
    for (const Parameter& parameter : command.parameters) {
        CLI::Option* const option = app->get_option(parameter.name);
        if (parameter.needs != nullptr) option->needs(app->get_option(parameter.needs));
        if (parameter.excludes != nullptr) option->excludes(app->get_option(parameter.excludes));
    }
    if (command.run == nullptr)
        app->require_subcommand(1);
    else
        app->callback([app, command] { command.run(argumentsOf(*app, command)); });
}

/// One line when the words name no command; empty when they do or ask for help.
std::string faultOfChoice(const std::vector<Command>& commands, const std::vector<std::string>& words) {
    std::string group;
    std::string fault = "a command is missing";
    for (const std::string& word : words) {
        if (word.starts_with('-')) return {};
        const std::string name = group.empty() ? word : group + " " + word;
        const auto found = std::ranges::find(commands, std::string_view(name), &Command::name);
        if (found == commands.end()) {
            fault = "'" + word + "' is not a command";
            break;
        }
        if (found->run != nullptr) return {};
        group = name;
    }
    std::string known;
    for (const Command& command : commands) {
        const auto [word, of] = wordAndGroup(command);
        if (of == group) known += (known.empty() ? "" : ", ") + word;
    }
    return "grubtool" + (group.empty() ? "" : " " + group) + ": " + fault + "; the commands are " + known;
}

/// CLI11 throws for help too; then the exit code is 0.
int reportEnd(const CLI::App& app, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return app.exit(end);
    std::fprintf(stderr, "grubtool: %s\n", end.what());
    return kWrongUsage;
}

}  // namespace

int runGrubtool(std::vector<std::string> words) {
    const std::vector<Command> commands = allCommands();
    if (const std::string fault = faultOfChoice(commands, words); !fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        return kWrongUsage;
    }
    CLI::App app("Makes and inspects Grubaway's content", "grubtool");
    app.require_subcommand(1);
    for (const Command& command : commands) {
        const auto [word, group] = wordAndGroup(command);
        addCommand(group.empty() ? app : *app.get_subcommand(group), word, command);
    }
    std::ranges::reverse(words);  // CLI11 takes them from the end
    try {
        app.parse(std::move(words));
    } catch (const CommandEnd& end) {
        return end.exitCode;
    } catch (const CLI::ParseError& end) {
        return reportEnd(app, end);
    }
    return 0;
}

}  // namespace grub
