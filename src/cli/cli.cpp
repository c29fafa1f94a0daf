#include "cli/cli.h"

#include <CLI/CLI.hpp>
#include <map>
#include <memory>

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
    CLI::App app{"Tallmar 1728: the annual Medicare cost report of a home health agency", "tallmar"};
    app.set_version_flag("--version", "tallmar " TALLMAR_VERSION);
    app.require_subcommand(1);
    std::string answer;
    CommandArguments arguments;
    std::map<const CLI::App*, const Command*> commands;
    for (const Command& row : All_Commands()) {
        CLI::App* command = app.add_subcommand(std::string(row.name), std::string(row.help));
        command->add_option("FILE", arguments.file, "The report file, .CRF")->required();
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

    ConsolePlatform platform(out, err, std::move(options));
    const Installed installed(platform);
    CommandContext context{arguments, in, out, err, platform};
    try {
        const int status = commands.at(app.get_subcommands().front())->run(context);
        out.flush();
        if (out) return status;
        err << "The results could not be written to standard output.\n";
    } catch (const DbError& error) {
        err << "Error " << error.Number() << ": " << error.Description() << '\n';
    } catch (const std::exception& error) {
        err << "Error: " << error.what() << '\n';
    }
    return kExitFailed;
}

}  // namespace tallmar
