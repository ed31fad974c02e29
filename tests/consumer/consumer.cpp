#include <vantrel.h>

#include <memory>

int main()
{
    const std::unique_ptr<vantrel, decltype(&vantrel_free)> report(vantrel_create("<a/>"),
                                                                   &vantrel_free);
    return vantrel_has_error(report.get()) == 1 ? 0 : 1;
}
