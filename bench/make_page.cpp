// Writes a page with so many metrics, for the browser's benchmark.
#include "sample_report.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    char* page = nullptr;
    if (argc != 3) {
        std::cerr << "usage: make_page METRICS FILE\n";
        return 2;
    }
    vantrel_handle* report = makeFilledReport(std::atoi(argv[1]));
    if (vantrel_write_html(report, &page) != VANTREL_OK) {
        std::cerr << vantrel_error_message(report) << '\n';
        return 1;
    }
    std::ofstream(argv[2], std::ios::binary).write(page, std::streamsize(pageSize(page)));
    std::free(page);
    vantrel_free(report);
    return 0;
}
