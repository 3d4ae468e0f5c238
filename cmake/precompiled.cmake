# Headers of other people's libraries, compiled once for all targets that want the same: parsing them was half of the
# build. Ours stay out, so that a change to one of them compiles again only what includes it. Every source still
# includes what it uses: clang-tidy and builds with CMAKE_DISABLE_PRECOMPILE_HEADERS see each one alone.
find_package(GTest REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Widgets)

set(VELA_STD_HEADERS
    <algorithm> <array> <charconv> <cmath> <cstdint> <cstring> <filesystem> <functional> <limits> <map> <memory>
    <optional> <span> <stdexcept> <string> <string_view> <unordered_map> <utility> <vector>)
set(VELA_QT_HEADERS
    <QApplication> <QComboBox> <QDialog> <QFile> <QFileDialog> <QHeaderView> <QLabel> <QLineEdit> <QMessageBox>
    <QPainter> <QPushButton> <QTableWidget> <QTimer> <QVBoxLayout>)
set(VELA_TEST_HEADERS <gtest/gtest.h> <fstream>)

# The code of tests is compiled more often than it is run.
set(VELA_TEST_COMPILE_OPTIONS -O0)

# vela_precompiled(NAME HEADERS headers... [LINK libraries...] [OPTIONS options...])
function(vela_precompiled name)
    cmake_parse_arguments(P "" "" "HEADERS;LINK;OPTIONS" ${ARGN})
    add_library(${name} OBJECT EXCLUDE_FROM_ALL cmake/precompiled.cpp)
    target_link_libraries(${name} PRIVATE vela_options ${P_LINK})
    target_compile_options(${name} PRIVATE ${P_OPTIONS})
    target_precompile_headers(${name} PRIVATE ${P_HEADERS})
endfunction()

set(VELA_HIDDEN -fvisibility=hidden -fvisibility-inlines-hidden) # what is precompiled takes it as well
vela_precompiled(precompiled_std HEADERS ${VELA_STD_HEADERS})
vela_precompiled(precompiled_std_hidden HEADERS ${VELA_STD_HEADERS} OPTIONS ${VELA_HIDDEN})
vela_precompiled(precompiled_qt HEADERS ${VELA_STD_HEADERS} ${VELA_QT_HEADERS} LINK Qt6::Widgets)
vela_precompiled(precompiled_qt_hidden HEADERS ${VELA_STD_HEADERS} ${VELA_QT_HEADERS} LINK Qt6::Widgets
    OPTIONS ${VELA_HIDDEN})
vela_precompiled(precompiled_tests HEADERS ${VELA_STD_HEADERS} ${VELA_TEST_HEADERS} LINK GTest::gtest
    OPTIONS ${VELA_TEST_COMPILE_OPTIONS})
vela_precompiled(precompiled_qt_tests HEADERS ${VELA_STD_HEADERS} ${VELA_TEST_HEADERS} ${VELA_QT_HEADERS}
    LINK GTest::gtest Qt6::Widgets OPTIONS ${VELA_TEST_COMPILE_OPTIONS})

# vela_precompile(TARGET KIND): std, std_hidden, qt, qt_hidden, tests or qt_tests. Those with Qt are for targets that link it.
function(vela_precompile target kind)
    target_compile_options(${target} PRIVATE -fPIC) # programs too: what is precompiled serves both
    target_precompile_headers(${target} REUSE_FROM precompiled_${kind})
endfunction()

# vela_join(TARGET): six sources are compiled as one, since each pays again for our headers and for the templates that
# it uses: it halves the build. Names in the unnamed namespaces of a folder must then differ. Builds without precompiled
# headers see each source alone.
function(vela_join target)
    if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
        # It takes a source that is included for a header.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
endfunction()
