// The solver model on the command line: the --model option, the "model"
// field of csv and json rows, and what a command prints when the element
// model finds no equilibrium.
#pragma once

#include <string>

#include "Cli.h"
#include "Output.h"
#include "shell/core/SolverModel.h"

namespace modelcli {

// --model iterative|aisc (a function: command tables are built during static initialisation).
const cli::Option& ModelOption();
// The model named by --model, Iterative when absent.
bool ReadModel(const cli::Parsed& p, shell::SolverModel& model, std::string& error);
// The "model" field that leads the csv and json rows of weld-c, capacity and bolt-c.
cli::Field ModelField(shell::SolverModel model);

// center_x_in and center_y_in, empty for a center at infinity.
cli::Row CenterFields(bool atInfinity, double x, double y);

// No equilibrium: nothing on stdout but, for json, `head` with "converged":
// false and the center where the solve ended; one line on stderr, exit 3.
int NoEquilibrium(const cli::Parsed& p, const cli::Row& head, bool atInfinity, double x, double y);

}  // namespace modelcli
