#pragma once

#include "api/c_interface.h"

#include <QByteArray>

#include <cstddef>
#include <vector>

/// The id of a sample's metric.
QByteArray metricId(int i);

/// How many metrics a section of a sample has, unless another number is given.
constexpr int usualSectionSize = 20;

/// A definition like those that people write: all metrics in sections, with colours, descriptions
/// and placeholders.
QByteArray makeDefinition(int metrics, int sectionSize = usualSectionSize);

std::vector<QByteArray> metricIds(int metrics);
void setAllValues(vantrel_handle* report, const std::vector<QByteArray>& ids);

/// A report of that definition which can be written.
vantrel_handle* makeFilledReport(int metrics, int sectionSize = usualSectionSize);

/// The number of bytes of a written page.
std::size_t pageSize(const char* page);
