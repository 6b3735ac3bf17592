#include "cli/file_arguments.h"

namespace {

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
    for (const CLI::App* command : app.get_subcommands(nullptr))
        if (command->check_name(name)) return command;
    return nullptr;
}

bool IsOption(const std::string& argument) {
    return argument.size() > 1 && argument.front() == '-';
}

// "--name value": the value is the next argument. "--name=value" and "-nvalue" have theirs.
bool TakesNextArgument(const CLI::App& command, const std::string& option) {
    const CLI::Option* const known = command.get_option_no_throw(option);
    return known != nullptr && known->get_items_expected_max() > 0;
}

}  // namespace

CommandLine TakeOutFiles(const CLI::App& app, int argc, const char* const* argv) {
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    CommandLine line;
    const CLI::App* command = nullptr;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (command == nullptr) {
            command = FindCommand(app, argument);
            line.options.push_back(argument);
        } else if (argument == "--") {
            line.files.insert(line.files.end(),
                              arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                              arguments.end());
            break;
        } else if (!IsOption(argument)) {
            line.files.push_back(argument);
        } else {
            line.options.push_back(argument);
            const bool hasValue = TakesNextArgument(*command, argument);
            if (hasValue && i + 1 < arguments.size()) line.options.push_back(arguments[++i]);
        }
    }
    return line;
}
