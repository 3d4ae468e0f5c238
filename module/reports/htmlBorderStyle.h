#pragma once

/// The drawing of a border: none, dotted, ...
class htmlBorderStyle {
public:
    enum code { none = 1, dotted, dashed, solid, doubled, groove, ridge, inset, outset };

    /// @param styleCode one of `code`; any other means none.
    explicit htmlBorderStyle(int styleCode = none) : m_code(styleCode) {}
    virtual ~htmlBorderStyle() = default;
    htmlBorderStyle(const htmlBorderStyle&) = default;
    htmlBorderStyle& operator=(const htmlBorderStyle&) = default;

    const char* text() const;

private:
    int m_code;
};
