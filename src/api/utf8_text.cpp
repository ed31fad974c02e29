#include "api/utf8_text.h"

#include <cstring>

namespace vantrel {

namespace {

/// What the first byte of a sequence says: how many bytes follow, and the range of the next one,
/// which keeps out longer forms than needed, halves of pairs and what lies beyond Unicode.
struct Lead {
    unsigned char first;
    unsigned char last;
    unsigned char following;
    unsigned char least = 0x80;
    unsigned char greatest = 0xBF;
};

constexpr Lead leads[] = {
    {0x00, 0x7F, 0},
    {0xC2, 0xDF, 1},
    {0xE0, 0xE0, 2, 0xA0},
    {0xE1, 0xEC, 2},
    {0xED, 0xED, 2, 0x80, 0x9F},
    {0xEE, 0xEF, 2},
    {0xF0, 0xF0, 3, 0x90},
    {0xF1, 0xF3, 3},
    {0xF4, 0xF4, 3, 0x80, 0x8F},
};

const Lead* findLead(unsigned char byte)
{
    for (const Lead& lead : leads) {
        if (byte >= lead.first && byte <= lead.last)
            return &lead;
    }
    return nullptr;
}

} // namespace

bool isValidUtf8(const char* text)
{
    if (!text)
        return true;
    const auto* at = reinterpret_cast<const unsigned char*>(text);
    while (*at) {
        const Lead* const lead = findLead(*at++);
        if (!lead)
            return false;
        // The NUL at the end is in no range.
        for (int i = 0; i < lead->following; ++i, ++at) {
            if (*at < (i == 0 ? lead->least : 0x80) || *at > (i == 0 ? lead->greatest : 0xBF))
                return false;
        }
    }
    return true;
}

bool isTooLong(const char* text)
{
    return text && std::strlen(text) > longestText;
}

} // namespace vantrel
