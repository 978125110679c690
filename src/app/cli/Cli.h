// ferrolith-cli: each subsystem registers its subcommands from its own file
// with a static Registrar, so the command table needs no central list.
#pragma once

#include <string>
#include <vector>

namespace cli {

using Args = std::vector<std::string>;

struct Command {
    std::string name;
    std::string usage;    // one line: "name ARGS [OPTIONS]"
    std::string summary;  // what it prints
    int (*run)(const Args& args);  // args after the command name; returns the exit code
};

struct Registrar {
    explicit Registrar(Command c);
};

const std::vector<Command>& Commands();

// One-line message on stderr ("ferrolith-cli: <message>"); returns 2.
int UsageError(const std::string& message);
// One-line message on stderr; returns `code`.
int Fail(const std::string& message, int code);

// Strict number reading for arguments: the whole text must be a number.
bool ParseDouble(const std::string& text, double& out);
bool ParseInt(const std::string& text, long& out);

// Options of the form "--name VALUE" anywhere in the arguments. TakeOption
// removes the pair and stores the value; it fails when the value is missing.
// TakeFlag removes a lone "--name".
bool TakeOption(Args& args, const std::string& name, std::string& value, bool& present);
bool TakeFlag(Args& args, const std::string& name);
// Every occurrence of "--name VALUE", in order.
bool TakeRepeated(Args& args, const std::string& name, std::vector<std::string>& values);

}  // namespace cli
