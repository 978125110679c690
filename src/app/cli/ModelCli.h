// The element model on the command line: the --model option, and the runs of
// weld-c, capacity and bolt-c when it asks for the element model.
#pragma once

#include <cstdint>
#include <string>

#include "Cli.h"
#include "Output.h"
#include "board/core/LayoutDocument.h"
#include "shell/core/SolverModel.h"

namespace modelcli {

// --model iterative|aisc (a function: command tables are built during static initialisation).
const cli::Option& ModelOption();
// The model named by --model, Iterative when absent.
bool ReadModel(const cli::Parsed& p, shell::SolverModel& model, std::string& error);
// The "model" field that leads the csv and json rows of weld-c, capacity and bolt-c.
cli::Field ModelField(shell::SolverModel model);

// weld-c CONFIG L kL aL ANGLE by the element model: prints C as weld-c does.
// Exit 0, or 3 when the group has no equilibrium, 1 when there is nothing to solve.
int WeldC(const cli::Parsed& p, int16_t config, const double (&v)[4], int stripIndex, bool verbose);

// capacity by the element model: the same two lines as the system's run;
// `head` leads the csv and json row.
int Capacity(const cli::Parsed& p, const Layout::LayoutDocument& doc, int stripIndex, double fexx,
             double size, double factor, const std::string& caption, const cli::Row& head);

// bolt-c by the element model: "C C'" with four decimals.
int BoltC(const cli::Parsed& p, int16_t m, int16_t n, const double (&v)[4]);

}  // namespace modelcli
