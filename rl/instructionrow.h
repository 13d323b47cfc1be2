#ifndef RL_INSTRUCTIONROW_H
#define RL_INSTRUCTIONROW_H

#include "pendix/rl.h"

#include <array>
#include <variant>
#include <vector>

/// An instruction that is described by texts. "%1" and "%2" of the skeleton stand for translated labels, those of
/// the pattern for its parts; what is not used is empty.
struct LineInstruction {
    const char* name;
    const char* description; ///< to be translated
    const char* skeleton;
    std::array<const char*, 2> labels;
    const char* pattern;
    std::array<const char*, 2> patternParts;
    const char* defaultLine;
    pendix::RLContentBase* (*createEditor)(const LineInstruction&); ///< null: the host builds it from the skeleton
};

/// A parameter of a motion, and how the host is to read it.
struct MotionField {
    enum Kind { Number = 1, QuotedText = 2, Point = 3, Speed = 5, Zone = 6, Tool = 7, Wobj = 8 };

    const char* name;
    Kind kind;
};

constexpr int kMostFields = 8;

/// A motion, described by its parameters.
struct MotionInstruction {
    const char* name;
    const char* title; ///< to be translated
    const char* syntax;
    std::array<MotionField, kMostFields> fields; ///< in argument order; those without a name are not used
    pendix::RLContentBase* (*createInsert)();
    pendix::RLContentBase* (*createProperty)();
};

using InstructionRow = std::variant<LineInstruction, MotionInstruction>;

/// The catalogue: one row per instruction, in the order in which they are registered. The rows stay where they are.
const std::vector<InstructionRow>& instructionRows();

#endif
