#ifndef CHECKS_MONKEY_SOURCETEXTS_H
#define CHECKS_MONKEY_SOURCETEXTS_H

#include <QMap>
#include <QRegularExpression>
#include <QString>
#include <QVector>

/// The texts that a plug-in has to say, from its translation file: what is not in there would come untranslated.
class SourceTexts
{
public:
    /// The plug-ins' files are where the build found them; one that can't be read ends the program.
    SourceTexts();

    /// The source text, with its place holders, that a plug-in's shown one is; empty for none.
    QString find(const QString& plugin, const QString& shown) const;

private:
    struct Row {
        QString text;
        QRegularExpression pattern; ///< place holders stand for anything
    };
    QMap<QString, QVector<Row>> m_rows; ///< by plug-in
};

#endif
