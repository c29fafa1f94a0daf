#include "cli/cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <utility>

#include "catalogue.h"
#include "cli/commands.h"
#include "common/db_error.h"

namespace tallmar {

namespace {

constexpr std::array<std::pair<std::string_view, Answer>, 4> kAnswers{
    {{"yes", Answer::Yes}, {"no", Answer::No}, {"ok", Answer::Ok}, {"cancel", Answer::Cancel}}};
constexpr std::string_view kProgramOptions[] = {"-h", "--help", "--version"};

void Add_Argument(CLI::App& command, const ArgumentSpec& spec, CommandArguments& arguments) {
    const std::string name(spec.name);
    const std::string help(spec.help);
    CLI::Option* option = spec.flag != nullptr   ? command.add_flag(name, arguments.*spec.flag, help)
                          : spec.list != nullptr ? command.add_option(name, arguments.*spec.list, help)
                                                 : command.add_option(name, arguments.*spec.text, help);
    if (spec.required) option->required();
}

// What is wrong with the first word, which is a command or an option of the program itself; empty where it is neither
// missing nor unknown.
std::string Trouble_Of_First_Word(const std::vector<std::string>& args) {
    if (args.empty()) return "A command is missing.";
    const std::string& word = args[0];
    if (word.starts_with('-')) {
        return std::ranges::count(kProgramOptions, word) > 0 ? "" : "There is no option " + word + ".";
    }
    const bool known = std::ranges::any_of(All_Commands(), [&](const Command& row) { return row.name == word; });
    return known ? "" : "There is no command " + word + ".";
}

// As the parser wants it: the trouble, or nothing.
std::string Is_Named(const std::string& file) {
    return file.empty() ? "a report needs a name" : "";
}

// The platform and the catalogue are installed only while a command runs: what was installed before comes back.
class Installed {
  public:
    explicit Installed(Platform& platform) : before_(Install_Platform(&platform)) { Install_Catalogue(All_Families()); }
    ~Installed() { Install_Platform(before_); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

  private:
    Platform* before_;
};

int Run(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
        ConsoleOptions options) {
    Results results(out);
    if (const std::string trouble = Trouble_Of_First_Word(args); !trouble.empty()) {
        err << One_Line(trouble) << "\nRun with --help for more information.\n";
        return kExitUsage;
    }
    CLI::App app{"Tallmar 1728: the annual Medicare cost report of a home health agency", "tallmar"};
    app.set_version_flag("--version", "tallmar " TALLMAR_VERSION);
    app.require_subcommand(1);
    std::string answer;
    CommandArguments arguments;
    std::map<const CLI::App*, const Command*> commands;
    for (const Command& row : All_Commands()) {
        CLI::App* command = app.add_subcommand(std::string(row.name), std::string(row.help));
        command->add_option("FILE", arguments.file, "The report file, .CRF")->required()->check(Is_Named);
        for (const ArgumentSpec& spec : row.arguments) Add_Argument(*command, spec, arguments);
        command->add_option("--answer", answer, "What message boxes are answered: yes, no, ok or cancel")
            ->check(CLI::IsMember({"yes", "no", "ok", "cancel"}));
        commands[command] = &row;
    }
    try {
        app.parse(std::vector<std::string>(args.rbegin(), args.rend()));
    } catch (const CLI::ParseError& error) {
        if (app.exit(error, results, err) != 0) return kExitUsage;
        results.Write_Out();
        return kExitDone;
    }
    for (const auto& [word, value] : kAnswers) {
        if (word == answer) options.answer = value;
    }

    ConsolePlatform platform(results, err, std::move(options));
    const Installed installed(platform);
    CommandContext context{arguments, in, results, err, platform};
    const int status = commands.at(app.get_subcommands().front())->run(context);
    results.Write_Out();
    return status;
}

}  // namespace

int Run_Command_Line(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
                     ConsoleOptions options) {
    try {
        return Run(args, in, out, err, std::move(options));
    } catch (const DbError& error) {
        err << "Error " << error.Number() << ": " << One_Line(error.Description()) << '\n';
    } catch (const ResultsNotWritten& error) {
        err << error.what() << '\n';
    } catch (const std::bad_alloc&) {
        err << "Error: There is not enough memory.\n";
    } catch (const std::exception& error) {
        err << "Error: " << One_Line(error.what()) << '\n';
    }
    return kExitFailed;
}

}  // namespace tallmar
