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

std::string madePage()
{
    vantrel* report = vantrel_create(definition);
    CHECK(fill(report) == 0);
    CHECK(vantrel_set_section_advice(report, "s", "<b>&eacute;</b>") == 0);
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
    CHECK(pages[0].size() > 100000);
    CHECK(messages[0].find(" at line 1 column ") != std::string::npos);
    for (int i = 0; i < count; ++i) {
        CHECK(pages[i] == pages[0]);
        CHECK(messages[i] == messages[0]);
    }
    CHECK(std::string(std::setlocale(LC_ALL, nullptr)) == "C");
    return failures != 0;
}
