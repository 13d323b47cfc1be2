#ifndef SIMULATOR_PROGRAM_EDITORFRAME_H
#define SIMULATOR_PROGRAM_EDITORFRAME_H

#include "pendix/rl.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QLabel;
class QScrollArea;

namespace sim
{

/// The place for one instruction editor, with a word about it below.
class EditorFrame : public QWidget
{
    Q_OBJECT

public:
    enum class Tone { Plain, Refusal };

    explicit EditorFrame(QWidget* parent = nullptr);
    ~EditorFrame() override;

    /// Takes the former editor away and shows this one, with its plug-in's style sheet around it; null: none.
    void setEditor(std::unique_ptr<pendix::RLContentBase> editor, const QString& sheet = {});
    pendix::RLContentBase* editor() const { return m_editor; }

    /// Replaces what was said before; empty: nothing is said.
    void tell(const QString& text, Tone tone = Tone::Plain);

signals:
    /// The plug-in has taken its editor away.
    void editorGone();

private:
    QScrollArea* m_scroll;
    QLabel* m_word;
    QPointer<pendix::RLContentBase> m_editor;
};

} // namespace sim

#endif
