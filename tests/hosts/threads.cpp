// Threads that make their first calls at once, each with reports of its own, refused ones too. The
// host's locale stays as it was.
#include "host.h"

#include <atomic>
#include <clocale>
#include <string>
#include <thread>
#include <vector>

namespace {

std::atomic<int> waiting{0};
std::atomic<int> faults{0};

void require(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        ++faults;
    }
}

std::string madePage()
{
    vantrel* report = vantrel_create(definition);
    require(fill(report) == 0, "a call failed");
    require(vantrel_set_section_advice(report, "s", "<b>&eacute;</b>") == 0, "advice failed");
    char* const page = page_of(report);
    const std::string text = page ? page : "";
    std::free(page);
    vantrel_free(report);
    return text;
}

std::string refusal()
{
    vantrel* report = vantrel_create(refused);
    const std::string message = report ? vantrel_error_message(report) : "null";
    vantrel_free(report);
    return message;
}

void work(int threads, std::string* page, std::string* message)
{
    ++waiting;
    while (waiting < threads) {
    }
    for (int round = 0; round < 5; ++round) {
        *page = madePage();
        *message = refusal();
    }
}

} // namespace

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 8;
    std::setlocale(LC_ALL, "C");
    std::vector<std::string> pages(count);
    std::vector<std::string> messages(count);
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back(work, count, &pages[i], &messages[i]);
    for (std::thread& thread : threads)
        thread.join();
    require(pages[0].size() > 100000, "no page");
    require(messages[0].find(" at line 1 column ") != std::string::npos, "no message");
    for (int i = 0; i < count; ++i) {
        require(pages[i] == pages[0], "a page differs");
        require(messages[i] == messages[0], "a message differs");
    }
    require(std::string(std::setlocale(LC_ALL, nullptr)) == "C", "the locale is another");
    return faults + failures != 0;
}
