#include "render/page_shell.h"

#include "render/resources.h"

#include <QStringList>

namespace corvane {

namespace {

QString shellText(const char* name)
{
    const QString path = QLatin1String(":vantrel/shell/") + QLatin1String(name);
    return QString::fromUtf8(vantrel::resourceBytes(path));
}

/// A page ends with its end tag, not with the end of a line.
PageShell readPageShell()
{
    const QStringList page = shellText("page.html").trimmed().split(QLatin1String("[[data]]"));
    return {ShellMarkup(page.first()), ShellMarkup(page.last()),
            ShellMarkup(shellText("script_file.html")), ShellMarkup(shellText("script.html")),
            ShellMarkup(shellText("template.html"))};
}

} // namespace

ShellMarkup::ShellMarkup(const QString& markup)
{
    int from = 0;
    for (;;) {
        const int begin = markup.indexOf(QLatin1String("[["), from);
        const int end = markup.indexOf(QLatin1String("]]"), begin);
        if (begin < 0 || end < 0)
            break;
        pieces.append({markup.mid(from, begin - from), markup.mid(begin + 2, end - begin - 2)});
        from = end + 2;
    }
    pieces.append({markup.mid(from), QString()});
}

QString ShellMarkup::filled(std::initializer_list<PlaceText> texts) const
{
    QString result;
    for (const Piece& piece : pieces) {
        result += piece.markup;
        for (const PlaceText& text : texts) {
            if (piece.place == QLatin1String(text.place))
                result += text.text;
        }
    }
    return result;
}

const PageShell& pageShell()
{
    static const auto& shell = *new PageShell(readPageShell());
    return shell;
}

} // namespace corvane
