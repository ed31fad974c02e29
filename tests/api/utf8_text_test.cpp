#include "api/utf8_text.h"

#include <QTextCodec>

#include <gtest/gtest.h>

using namespace vantrel;

TEST(Utf8Text, isJudgedAsQtDoes)
{
    // All texts of up to four of the bytes at which the rules change.
    const QByteArray edges("\x01\x7F\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE"
                           "\xEF\xF0\xF1\xF3\xF4\xF5\xFF");
    QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    const int count = edges.size();
    int differences = 0;
    for (int i = 0; i < count * count * count * count; ++i) {
        QByteArray text;
        for (int rest = i; rest > 0; rest /= count)
            text += edges.at(rest % count);
        QTextCodec::ConverterState state;
        codec->toUnicode(text, text.size(), &state);
        differences += isValidUtf8(text) != (state.invalidChars + state.remainingChars == 0);
    }
    EXPECT_EQ(differences, 0);
    EXPECT_TRUE(isValidUtf8(nullptr));
}
