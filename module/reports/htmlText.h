#pragma once

#include <string>
#include <string_view>

/// A paragraph or a list item.
class htmlText {
public:
    enum kind { listItem = 0, paragraph = 1 };

    /// @param kindCode one of `kind`; any other renders as nothing.
    explicit htmlText(std::string text, std::string attributes = {}, int kindCode = paragraph) :
        m_text(std::move(text)),
        m_attributes(std::move(attributes)),
        m_kind(kindCode)
    {
    }
    virtual ~htmlText() = default;
    htmlText(const htmlText&) = default;
    htmlText& operator=(const htmlText&) = default;

    /// "<P attributes>text</P>" or "<LI attributes>text</LI>".
    std::string render() const;

private:
    std::string m_text;
    std::string m_attributes;
    int m_kind;
};

/// `text` made fit to stand in HTML: "&", "<" and ">" become entities. The writer itself escapes nothing, so callers
/// pass through here what users typed.
std::string htmlEscaped(std::string_view text);
