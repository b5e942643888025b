// The ways to show explanations.

#pragma once

#include <memory>
#include <string>

#include "Explanation.h"

namespace tabulorix {

// What is written is in UTF-8, whatever bytes a tab has. Call Begin, then Show for each
// explanation, then End, and put the texts behind each other.
class ExplanationPage {
public:
    virtual ~ExplanationPage() = default;

    virtual std::string Begin() const = 0;
    virtual std::string Show(const Explanation& explanation) const = 0;
    virtual std::string End() const = 0;
};

// Plain text, with the escape sequences of terminals for the colours.
std::unique_ptr<ExplanationPage> MakeTextPage(bool hasColours);
// One document for a browser, which needs no other file.
std::unique_ptr<ExplanationPage> MakeHtmlPage();

}  // namespace tabulorix
