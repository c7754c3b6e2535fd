#include "output/DataFile.h"

#include <cstdio>
#include <ctime>

#include "base/NumberText.h"

namespace vt {

std::string BuildDataText(const GraphDataFields& fields) {
    std::string text;
    auto field = [&text](std::string_view value) {
        text += value;
        text += FieldSeparator;
    };
    for (const std::string& slot : fields.Slots)
        field(slot);
    for (const PointXY& point : fields.Points) {
        field(NumberText(point.X));
        field(NumberText(point.Y));
    }
    field(fields.Linear ? "True" : "False");
    field(fields.OrderText);
    return text;
}

std::vector<std::string> SplitFields(std::string_view text) {
    std::vector<std::string> fields;
    if (text.empty()) return fields;
    std::size_t start = 0;
    for (;;) {
        const std::size_t at = text.find(FieldSeparator, start);
        if (at == std::string_view::npos) break;
        fields.emplace_back(text.substr(start, at - start));
        start = at + FieldSeparator.size();
    }
    fields.emplace_back(text.substr(start));
    return fields;
}

CalendarDate Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#if defined(_WIN32)
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::string FileNameDate(const CalendarDate& date) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d-%02d-%02d", date.Month % 100, date.Day % 100,
                  ((date.Year % 100) + 100) % 100);
    return text;
}

std::string ProposedDataFileName(const CalendarDate& date) {
    return "Veritrace " + FileNameDate(date);
}

std::string ProposedBitmapFileName(const CalendarDate& date) {
    return "GraphBitmap " + FileNameDate(date);
}

} // namespace vt
