#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "gemat3d.h"

/// The values of a chunk of a picture that an entity brings along, one after the other; zeros past its end.
class ChunkReader {
public:
    explicit ChunkReader(std::string_view bytes) : m_left(bytes) {}

    std::int32_t integer() { return read<std::int32_t>(); }
    double real() { return read<double>(); }
    AcGePoint3d point()
    {
        const double x = real(), y = real();
        return {x, y, real()};
    }
    /// As many as are there, of those that are announced.
    std::vector<AcGePoint3d> points(std::int64_t count)
    {
        std::vector<AcGePoint3d> all;
        while (count-- > 0 && m_left.size() >= 3 * sizeof(double))
            all.push_back(point());
        return all;
    }
    std::vector<std::int32_t> integers(std::int64_t count)
    {
        std::vector<std::int32_t> all;
        while (count-- > 0 && m_left.size() >= sizeof(std::int32_t))
            all.push_back(integer());
        return all;
    }
    AcGeMatrix3d matrix(unsigned int rows = 4)
    {
        AcGeMatrix3d matrix;
        for (unsigned int row = 0; row < rows; ++row)
            for (double& entry : matrix.entry[row])
                entry = real();
        return matrix;
    }
    std::string_view rest() const { return m_left; }
    /// Up to a zero, in fours.
    std::string text()
    {
        std::string text(m_left.substr(0, m_left.find('\0')));
        skip((text.size() + 4) & ~std::size_t{3});
        return text;
    }
    std::wstring wideText()
    {
        std::wstring text;
        std::size_t used = 0;
        for (char16_t unit = 1; unit != 0 && m_left.size() >= sizeof unit; used += sizeof unit) {
            unit = read<char16_t>();
            if (unit != 0)
                text += static_cast<wchar_t>(unit);
        }
        skip(used % 4);
        return text;
    }

private:
    void skip(std::size_t bytes) { m_left.remove_prefix(std::min(bytes, m_left.size())); }

    template <class Value>
    Value read()
    {
        Value value{};
        if (m_left.size() < sizeof value)
            m_left = {};
        else
            std::memcpy(&value, m_left.data(), sizeof value);
        skip(sizeof value);
        return value;
    }

    std::string_view m_left;
};
