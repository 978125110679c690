// A cell that holds nothing, a number or a text, for the procedures whose
// result may be either a value or a word such as "*ERROR*".
#pragma once

#include <string>
#include <utility>

namespace prim {

struct Variant {
    enum class Kind { Empty, Number, Text };
    Kind kind = Kind::Empty;
    double number = 0.0;
    std::string text;

    Variant() = default;
    Variant(double v) : kind(Kind::Number), number(v) {}
    Variant(std::string t) : kind(Kind::Text), text(std::move(t)) {}
    Variant(const char* t) : kind(Kind::Text), text(t) {}

    bool IsEmpty() const { return kind == Kind::Empty; }
    bool IsNumber() const { return kind == Kind::Number; }
    bool IsText() const { return kind == Kind::Text; }
};

}  // namespace prim
