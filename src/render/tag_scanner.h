#pragma once

#include <QBitArray>
#include <QString>
#include <QVector>

namespace vantrel {

/// A piece of the text, from begin to before end.
struct TextRange {
    int begin = 0;
    int end = 0;
};

/// An attribute with a quoted value. It has exactly one of the white space characters in front.
struct TagAttribute {
    TextRange name;
    TextRange value; ///< quotes included
    int begin() const { return name.begin - 1; }
    int end() const { return value.end; }
};

/// A start tag: its attributes lie from behind the tag's name to before the closing ">".
struct StartTag {
    int begin = 0;
    TextRange attributeText;
    QVector<TagAttribute> attributes;
    int end() const { return attributeText.end + 1; }
};

/// Finds the start tags of one name in a text, whatever their case, in linear time also where
/// there are many tags that don't end or don't suit.
///
/// The name is a prefix: "<imgx" counts as an img tag. A tag ends at the first ">" outside quotes.
class TagScanner {
public:
    TagScanner(const QString& html, const char* tagName);

    /// Goes to the next tag; false at the end of the text.
    bool next(StartTag* tag);
    /// Goes on behind this position.
    void accept(int end) { position = end; }
    /// Goes on inside the tag, which was of no use. Tags that begin in it outside of quotes would
    /// see no more than it did, so they are not looked at.
    void reject(const StartTag& tag);

private:
    bool scanTag(StartTag* tag);
    void markSeen(int begin, int end);

    const QString& text;
    const QString name;
    int position = 0;
    QBitArray seen; ///< places outside of quotes that a useless tag has led through
};

/// Whether the range of the text is this ASCII word, whatever its case.
bool isWord(const QString& text, TextRange range, const char* word);

} // namespace vantrel
