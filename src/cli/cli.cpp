#include "cli/cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <new>
#include <sstream>

#include "catalogue.h"
#include "cli/commands.h"
#include "common/db/error.h"

namespace tallmar {

namespace {

const std::map<std::string, Answer> kAnswers{
    {"yes", Answer::Yes}, {"no", Answer::No}, {"ok", Answer::Ok}, {"cancel", Answer::Cancel}};

void Add_Argument(CLI::App& command, const ArgumentSpec& spec, CommandArguments& arguments) {
    const std::string name(spec.name);
    const std::string help(spec.help);
    CLI::Option* option = spec.flag != nullptr   ? command.add_flag(name, arguments.*spec.flag, help)
                          : spec.list != nullptr ? command.add_option(name, arguments.*spec.list, help)
                                                 : command.add_option(name, arguments.*spec.text, help);
    if (spec.required) option->required();
}

// A first word that names no command. Options of the program itself are looked at by the parser.
bool Is_Unknown_Command(const std::vector<std::string>& args) {
    return !args.empty() && !args[0].starts_with('-') &&
           std::ranges::none_of(All_Commands(), [&](const Command& row) { return row.name == args[0]; });
}

// As the parser wants it: the trouble, or nothing.
std::string Is_Named(const std::string& file) {
    return file.empty() ? "a report needs a name" : "";
}

// The platform and the catalogue stand only while a command runs: what was installed before comes back.
class Installed {
  public:
    explicit Installed(Platform& platform) : before_(Install_Platform(&platform)) { Install_Catalogue(All_Families()); }
    ~Installed() { Install_Platform(before_); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

  private:
    Platform* before_;
};

}  // namespace

int Run_Command_Line(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
                     ConsoleOptions options) {
    if (Is_Unknown_Command(args)) {
        err << "There is no command " << args[0] << ".\nRun with --help for more information.\n";
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
        return app.exit(error, out, err) == 0 ? kExitDone : kExitUsage;
    }
    if (const auto found = kAnswers.find(answer); found != kAnswers.end()) options.answer = found->second;

    // Results are told when the job is done: one that fails half-way tells none.
    std::ostringstream results;
    ConsolePlatform platform(results, err, std::move(options));
    const Installed installed(platform);
    CommandContext context{arguments, in, results, err, platform};
    try {
        const int status = commands.at(app.get_subcommands().front())->run(context);
        out << results.view() << std::flush;
        if (out) return status;
        err << "The results could not be written to standard output.\n";
    } catch (const std::bad_alloc&) {
        err << "Out of memory\n";
    } catch (const DbError& error) {
        err << "Error " << error.Number() << ": " << One_Line(error.Description()) << '\n';
    } catch (const std::exception& error) {
        err << "Error: " << error.what() << '\n';
    }
    return kExitFailed;
}

}  // namespace tallmar
