#pragma once

#include <string>
#include <string_view>

#include "dxf/DxfCursor.h"
#include "dxf/DxfEncoding.h"
#include "dxf/DxfFile.h"
#include "dxf/DxfTranscode.h"
#include "dxf/DxfValue.h"

/// Opens bytes and reads all there is in every way there is; true if they were accepted, false if refused with
/// DxfError. Aborts when the records are not the file, or two records share a handle.
inline bool exerciseDxf(std::string_view bytes, DxfUpgrade upgrade)
{
    const auto require = [](bool condition) {
        if (!condition)
            __builtin_trap();
    };
    try {
        DxfFile file(std::string(bytes), "essai.dxf", upgrade);
        std::uint64_t offset = 0;
        for (const DxfRecord& record : file.records()) {
            require(record.offset == offset);
            offset += record.length;
            if (record.handle != 0 && (record.flags & DxfRecord::handleRepaired))
                require(&file.records()[file.handles().find(record.handle)] == &record);
            const std::string repaired = file.repairedBytes(record);
            DxfCursor cursor(file.form(), repaired);
            for (DxfTag tag; !(record.flags & DxfRecord::pseudo) && cursor.next(tag);) {
                double real = 0;
                std::int64_t integer = 0;
                std::uint64_t handle = 0;
                std::string chunk;
                dxfReal(file.form(), tag, real);
                dxfInteger(file.form(), tag, integer);
                dxfHandle(tag, handle);
                dxfBytes(file.form(), tag, chunk);
                file.form().encoding->encode(file.form().encoding->decode(dxfText(tag)));
            }
        }
        require(offset == file.bytes().size());
        DxfForm other = file.form();
        other.binary = !other.binary;
        other.oneByteCodes = false;
        transcodeFile(file, other);
        return true;
    } catch (const DxfError&) {
        return false;
    }
}
