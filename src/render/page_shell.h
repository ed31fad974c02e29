#pragma once

#include <QString>
#include <QVector>

#include <initializer_list>

namespace corvane {

struct PlaceText {
    const char* place;
    QString text;
};

/// Markup with places, written [[name]], that take texts.
class ShellMarkup {
public:
    explicit ShellMarkup(const QString& markup);

    /// The markup with a text in each place.
    QString filled(std::initializer_list<PlaceText> texts) const;

private:
    struct Piece {
        QString markup;
        QString place; ///< behind the markup; empty at the end
    };
    QVector<Piece> pieces;
};

/// The markup of a page around what an engine has loaded. Its files are in resources/shell.
struct PageShell {
    ShellMarkup beforeData;
    ShellMarkup afterData;
    ShellMarkup scriptFile;
    ShellMarkup script;
    ShellMarkup templateElement;
};

/// Read and taken apart once per process.
const PageShell& pageShell();

} // namespace corvane
