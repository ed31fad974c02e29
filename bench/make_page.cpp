// Writes a page with so many metrics, for the browser's benchmark.
#include "sample_report.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    char* page = nullptr;
    if (argc != 4) {
        std::cerr << "usage: make_page METRICS METRICS_PER_SECTION FILE\n";
        return 2;
    }
    vantrel_handle* report = makeFilledReport(std::atoi(argv[1]), std::atoi(argv[2]));
    if (vantrel_write_html(report, &page) != VANTREL_OK) {
        std::cerr << vantrel_error_message(report) << '\n';
        return 1;
    }
    std::ofstream(argv[3], std::ios::binary).write(page, std::streamsize(pageSize(page)));
    std::free(page);
    vantrel_free(report);
    return 0;
}
