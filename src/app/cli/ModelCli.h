// The element model on the command line: the --model option, and the runs of
// weld-c, capacity and bolt-c when it asks for the element model.
#pragma once

#include <cstdint>
#include <string>

#include "Cli.h"
#include "board/PublicVariables.h"
#include "shell/SolverModel.h"

namespace modelcli {

// --model iterative|aisc; the model is left alone when the option is absent.
bool TakeModel(cli::Args& args, shell::SolverModel& model, std::string& error);

// weld-c CONFIG L kL aL ANGLE by the element model: prints C as weld-c does.
// Exit 0, or 3 when the group has no equilibrium, 1 when there is nothing to solve.
int WeldC(int16_t config, const double (&v)[4], int stripIndex, bool verbose);

// capacity by the element model: the same two lines as the system's run.
int Capacity(const PublicVariables::LayoutDocument& doc, int stripIndex, double fexx, double size, double factor,
             const std::string& caption);

// bolt-c by the element model: "C C'" with four decimals.
int BoltC(int16_t m, int16_t n, const double (&v)[4]);

}  // namespace modelcli
