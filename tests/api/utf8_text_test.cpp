#include "api/utf8_text.h"

#include <QTextCodec>

#include <gtest/gtest.h>

using namespace vantrel;

namespace {

bool qtAccepts(const QByteArray& text)
{
    static QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    codec->toUnicode(text, text.size(), &state);
    return state.invalidChars < 1 && state.remainingChars < 1;
}

} // namespace

TEST(Utf8Text, isJudgedAsQtDoes)
{
    // All texts of up to four of the bytes at which the rules change.
    const QByteArray edges("\x01\x7F\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE"
                           "\xEF\xF0\xF1\xF3\xF4\xF5\xFF");
    const int count = edges.size();
    int accepted = 0;
    int differences = 0;
    for (int i = 0; i < count * count * count * count; ++i) {
        QByteArray text;
        for (int rest = i; rest > 0; rest /= count)
            text += edges.at(rest % count);
        accepted += isValidUtf8(text);
        differences += isValidUtf8(text) != qtAccepts(text);
    }
    EXPECT_EQ(differences, 0);
    EXPECT_GT(accepted, 1000);
    EXPECT_TRUE(isValidUtf8(nullptr));
}
