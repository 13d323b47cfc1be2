#include "simulator/program/instructioneditor.h"

#include "simulator/program/templateeditor.h"

#include <QCoreApplication>

#include <exception>

namespace sim
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::InstructionEditor", text);
}

using Editor = std::unique_ptr<pendix::RLContentBase>;

Editor createByFactory(const std::function<pendix::RLContentBase*()>& factory, QString* fault)
{
    try {
        Editor editor(factory());
        if (editor == nullptr) {
            *fault = tr("The plug-in's factory gave no editor.");
        }
        return editor;
    } catch (const std::exception& exception) {
        *fault = tr("The plug-in's editor can't be built: %1").arg(QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        *fault = tr("The plug-in's editor can't be built: unknown exception");
    }
    return nullptr;
}

Editor createByTemplate(const pendix::RlInstruction& instruction, QString* fault)
{
    const std::optional<InstructionTemplate> form = InstructionTemplate::parse(instruction.skeleton, fault);
    if (!form) {
        return nullptr;
    }
    auto editor = std::make_unique<TemplateEditor>(*form);
    // A new line starts as the plug-in proposes it.
    editor->FillWith(instruction.defaultLine);
    return editor;
}

} // namespace

Editor createEditor(const pendix::RlInstruction& instruction, EditorRole role, QString* fault)
{
    const auto& factory = role == EditorRole::Insert ? instruction.insertFactory : instruction.propertyFactory;
    if (factory) {
        return createByFactory(factory, fault);
    }
    if (InstructionTemplate::isTemplate(instruction.skeleton)) {
        return createByTemplate(instruction, fault);
    }
    *fault = tr("The plug-in has registered no editor for this.");
    return nullptr;
}

} // namespace sim
