#ifndef SIMULATOR_PROGRAM_INSTRUCTIONEDITOR_H
#define SIMULATOR_PROGRAM_INSTRUCTIONEDITOR_H

#include "pendixhost/host.h"

#include <memory>

namespace sim
{

enum class EditorRole { Insert, Change };

/// A new editor of an instruction for one of its two purposes: by the factory that its plug-in registered, else
/// built from its skeleton when that is a template. Without either, or when the plug-in's code fails, there is
/// none, and fault says why.
std::unique_ptr<pendix::RLContentBase> createEditor(const pendix::RlInstruction& instruction, EditorRole role,
                                                    QString* fault);

} // namespace sim

#endif
