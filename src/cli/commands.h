// The commands, one row each. A command's procedure calls what the menus call and prints.
#pragma once

#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/console_platform.h"
#include "cli/exit_status.h"
#include "cli/results.h"

namespace tallmar {

// What the command line gave; each command reads its own part.
struct CommandArguments {
    std::string file;
    std::string statement;                   // sql
    std::vector<std::string> tables;         // dump
    std::string cells;                       // enter: empty for standard input
    std::string target;                      // save-as
    std::string provider, start, end, name;  // new
    bool json = false;                       // info
};

struct CommandContext {
    const CommandArguments& arguments;
    std::istream& in;
    Results& out;
    std::ostream& err;
    ConsolePlatform& platform;
};

struct ArgumentSpec {
    std::string_view name;  // "--provider" an option, "STATEMENT" a positional one
    std::string_view help;
    bool required;
    std::string CommandArguments::*text;  // exactly one of the three is set
    std::vector<std::string> CommandArguments::*list;
    bool CommandArguments::*flag;
};

struct Command {
    std::string_view name;
    std::string_view help;
    std::span<const ArgumentSpec> arguments;  // besides FILE
    int (*run)(CommandContext&);
};

std::span<const Command> All_Commands();

int Run_New(CommandContext& context);
int Run_Info(CommandContext& context);
int Run_Sql(CommandContext& context);
int Run_Dump(CommandContext& context);
int Run_Enter(CommandContext& context);
int Run_Calc(CommandContext& context);
int Run_Save_As(CommandContext& context);
int Run_Compact(CommandContext& context);

}  // namespace tallmar
