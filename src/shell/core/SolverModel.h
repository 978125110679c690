// The two ways the program can find the instantaneous center of a weld or
// bolt group: its own iteration (the default everywhere) and the element
// model with each element's own deformation limits, solved to equilibrium.
#pragma once

#include <optional>
#include <string>

namespace shell {

enum class SolverModel { Iterative, AiscElement };

// Command-line word of a model: "iterative" or "aisc".
inline const char* SolverModelName(SolverModel model) {
    return model == SolverModel::AiscElement ? "aisc" : "iterative";
}

// Caption a window shows beside a result.
inline const char* SolverModelCaption(SolverModel model) {
    return model == SolverModel::AiscElement ? "AISC element model" : "System iteration";
}

// The model a result is cross-checked against: the element model for the
// iteration's results, none for the element model's own.
inline std::optional<SolverModel> CrossCheckModel(SolverModel model) {
    if (model == SolverModel::Iterative) return SolverModel::AiscElement;
    return std::nullopt;
}

// The model a calculation sheet states beside a result: the other one.
inline SolverModel OtherModel(SolverModel model) {
    return model == SolverModel::Iterative ? SolverModel::AiscElement : SolverModel::Iterative;
}

// Reads "iterative" or "aisc"; false (model untouched) for anything else.
inline bool ParseSolverModel(const std::string& text, SolverModel& model) {
    if (text == "iterative") {
        model = SolverModel::Iterative;
        return true;
    }
    if (text == "aisc") {
        model = SolverModel::AiscElement;
        return true;
    }
    return false;
}

}  // namespace shell
