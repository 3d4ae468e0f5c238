#!/usr/bin/env python3
"""Feeds the guards with faults: a guard that finds none here finds none in the house either."""
import tempfile
import unittest
from pathlib import Path

import caption_guard
import include_guard
import symbol_guard
import unused_names

SOUND = {
    "host/include/dbents.h": '#include "gepnt3d.h"\n',
    "host/include/gepnt3d.h": "#include <cmath>\n",
    "host/include/adesk.h": "",
    "host/platform/Paths.h": "#include <unistd.h>\n",
    "host/ge/Line.cpp": '#include "gepnt3d.h"\n',
    "host/dxf/Reader.h": '#include "platform/Paths.h"\n#include <sys/mman.h>\n',
    "host/db/Record.h": '#include "dxf/Reader.h"\n#include "dbents.h"\n',
    "host/ed/Commands.cpp": '#include "db/Record.h"\n',
    "host/ui/Window.cpp": "#include <QMainWindow>\n",
    "module/points/point.h": '#include "dbents.h"\n',
    "module/calculs/somme.cpp": '#include "calculs/somme.h"\n#include "reports/page.h"\n#include <cmath>\n',
    "module/calculs/somme.h": "",
    "module/calculs/placerSomme.cpp": '#include "somme.h"\n#include "services/noms.h"\n#include "points/point.h"\n',
    "module/services/noms.h": '#include "dbents.h"\n',
    "module/calculs/DlgSomme.cpp": '#include "somme.h"\n#include "ui_DlgSomme.h"\n#include <QDialog>\n',
    "module/reports/page.h": "#include <string>\n",
    "module/codification/lecture.cpp": "#include <tinyxml.h>\n",
    "module/frame/entree.cpp": '#include "points/point.h"\n#include "calculs/placerSomme.h"\n',
    "module/calculs/placerSomme.h": '#include "calculs/somme.h"\n',
    "siblings/principal/projet.cpp": '#include "points/point.h"\n#include "dbents.h"\n',
    "app/main.cpp": '#include "db/Record.h"\n#include <CLI/CLI.hpp>\n',
}

# name, file, what it includes, what the guard says
FAULTS = (
    ("module sees the kernel", "module/frame/x.cpp", '"db/Record.h"', "module/frame may not include \"db/Record.h\" of host/db"),
    ("a path round the include folder", "module/frame/x.cpp", '"../../host/db/Record.h"', "of host/db"),
    ("a layer sees one above", "module/points/x.cpp", '"calculs/somme.h"', "of module/calculs"),
    ("a layer sees one beside", "module/tools/x.cpp", '"calculs/somme.h"', "of module/calculs"),
    ("a dialog sees a layer above", "module/services/DlgX.cpp", '"points/point.h"', "of module/points"),
    ("a layer nobody spoke of", "module/newfolder/x.cpp", "<vector>", "module/newfolder may not include <vector>"),
    ("windows outside dialogs", "module/points/x.cpp", "<QWidget>", "(qt)"),
    ("module uses the platform", "module/points/x.cpp", "<unistd.h>", "<unistd.h> (posix)"),
    ("a vendor header we do not have", "module/points/x.cpp", '"dbnothere.h"', "<dbnothere.h> (posix)"),
    ("computation sees the drawing", "module/calculs/x.cpp", '"dbents.h"', "of host/include"),
    ("computation sees the points", "module/calculs/x.h", '"points/point.h"', "of module/points"),
    ("computation sees its drawing glue", "module/calculs/fermeture.h", "<QString>", "(qt)"),
    ("report sees the drawing", "module/reports/x.cpp", '"gepnt3d.h"', "of host/include"),
    ("report sees windows", "module/reports/x.cpp", "<QWidget>", "(qt)"),
    ("computation sees a dialog's template", "module/calculs/x.cpp", '"ui_DlgSomme.h"', "(qt)"),
    ("codec sees the database", "host/dxf/x.cpp", '"db/Record.h"', "of host/db"),
    ("codec sees the interface", "host/dxf/x.cpp", '"dbents.h"', "of host/include"),
    ("geometry sees the database's interface", "host/ge/x.cpp", '"dbents.h"', "of host/include"),
    ("platform sees the editor", "host/platform/x.cpp", '"ed/Commands.h"', "ed/Commands.h"),
    ("windows below their line", "host/ed/x.cpp", "<QApplication>", "(qt)"),
    ("kernel sees the module", "host/ed/x.cpp", '"points/point.h"', "of module/points"),
    ("interface shows the inside", "host/include/x.h", '"db/Record.h"', "of host/db"),
    ("sibling sees the frame", "siblings/principal/x.cpp", '"calculs/somme.h"', "of module/calculs"),
    ("sibling sees the kernel", "siblings/principal/x.cpp", '"db/Record.h"', "of host/db"),
    ("a folder nobody spoke of", "host/newfolder/x.cpp", "<vector>", "host/newfolder may not include <vector>"),
    ("headers in a circle", "host/include/gepnt3d.h", '"dbents.h"', "files include each other in a circle"),
    ("computation sees what draws", "module/calculs/somme.h", '"calculs/placerSomme.h"', "include each other in a circle"),
    ("folders in a circle", "host/db/x.cpp", '"ed/Record.h"', "folders include each other in a circle"),
)


TEMPLATE = '<ui><widget class="QDialog" name="D"><widget class="%s" name="p"><property name="text"><string>%s</string>' \
           '</property></widget><widget class="QPushButton" name="b"><property name="text"><string>%s</string></property>' \
           '</widget></widget></ui>'

# what the dialog's panel is, its caption, the button's, and whether they clash
CAPTIONS = (
    ("QLabel", "&amp;Nom", "Ra&amp;ng", True),
    ("QLabel", "&amp;Écart", "&amp;Exporter", True),
    ("QLabel", "&amp;Nom", "Rang", False),
    ("QLabel", "&amp;Nom", "N &amp;&amp; R", False),
    ("panneau", "Titre", "&amp;Fermer", True),
)


class CaptionGuard(unittest.TestCase):
    def test_letters_that_clash(self):
        for kind, first, second, clash in CAPTIONS:
            with self.subTest(first + second), tempfile.TemporaryDirectory() as name:
                folder = Path(name, "module")
                folder.mkdir()
                (folder / "DlgEssai.ui").write_text(TEMPLATE % (kind, first, second))
                (folder / "panneau.ui").write_text(TEMPLATE % ("QLabel", "&amp;Fichier", "Rien"))
                self.assertEqual(bool(caption_guard.faults(name)), clash)


class IncludeGuard(unittest.TestCase):
    def faults(self, files):
        with tempfile.TemporaryDirectory() as name:
            for path, text in files.items():
                file = Path(name, path)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            return include_guard.faults(Path(name))

    def test_a_sound_tree_passes(self):
        self.assertEqual(self.faults(SOUND), [])

    def test_each_fault_is_found(self):
        for name, path, included, said in FAULTS:
            with self.subTest(name):
                files = dict(SOUND, **{"host/ed/Record.h": "", "host/ed/Commands.h": ""})
                files[path] = files.get(path, "") + "#include %s\n" % included
                found = self.faults(files)
                self.assertIn(said, found[0] if found else "")


INTERFACE = {
    "rxobject.h": """
        #define DECLARE(C) static int desc(); virtual int isA() const
        class AcRxClass;
        class AcRxObject { public: virtual ~AcRxObject(); DECLARE(AcRxObject); bool operator==(int) const { return hidden(1); } };
        template <class T> class AcArray { public: int append(const T& value); };
        struct AcDbImpDatabase;
        """,
    "aced.h": """
        #include <string>
        #include "rxobject.h"
        namespace Acad { enum ErrorStatus { eOk }; }
        class AcDbDatabase : public AcRxObject { public: int save(int as = 1); AcDbImpDatabase* m_imp; friend class Keeper; };
        extern "C" { int acedDefun(const wchar_t* name, short code); }
        int acutPrintf(const wchar_t* format, ...);
        extern AcDbDatabase* theDatabase;
        namespace AcGe { int tolerance(); }
        """,
}

# symbol as nm prints it, whether a module may import it
SYMBOLS = (
    ("acedDefun", True),
    ("acutPrintf(wchar_t const*, ...)", True),
    ("theDatabase", True),
    ("AcGe::tolerance()", True),
    ("AcDbDatabase::save(int)", True),
    ("AcDbDatabase::AcDbDatabase()", True),
    ("AcRxObject::desc()", True),
    ("AcRxObject::operator==(int) const", True),
    ("typeinfo for AcDbDatabase", True),
    ("vtable for AcRxObject", True),
    ("int AcArray<AcArray<double> >::append(AcArray<double> const&)", True),
    ("std::ios_base::Init::Init()@GLIBCXX_3.4", True),
    ("memcpy@GLIBC_2.14", True),
    ("__cxa_begin_catch@CXXABI_1.3", True),
    ("QString::append(QChar)@Qt_6", True),
    ("TiXmlElement::Attribute(char const*) const", True),
    ("__gmon_start__", True),
    ("DxfFile::open(std::string const&)", False),
    ("AcDbImpDatabase::save(int)", False),
    ("typeinfo for AcDbImpDatabase", False),
    ("Keeper::keep()", False),
    ("AcRxClass::name() const", False),
    ("AcDbDatabase::saveQuietly()", False),
    ("AcGe::inside()", False),
    ("hidden(int)", False),
    ("acutPrintfUtf8(char const*)", False),
    ("vela::Undo::record(AcDbDatabase*)", False),
    ("iconv_of_somebody", False),
)


class SymbolGuard(unittest.TestCase):
    def test_symbols(self):
        with tempfile.TemporaryDirectory() as name:
            for header, text in INTERFACE.items():
                Path(name, header).write_text(text)
            names = symbol_guard.declared_names(symbol_guard.preprocessed(Path(name), "c++"))
        for symbol, allowed in SYMBOLS:
            with self.subTest(symbol):
                self.assertEqual(symbol_guard.foreign_symbols([symbol], names), [] if allowed else [symbol])


# A header, what uses it, and the names nothing uses.
DECLARED = """
    #pragma once
    namespace vela {
    enum class Side { left, right = 2 };   // right: of nobody
    struct Point { double x = 0.0; int rank; };
    using Name = int;
    template <class T> T doubled(T value) { return halved(value) * 4; }
    inline constexpr double turn = 6.28;
    extern "C" int entry(int code);
    class Reader : public Base {
    public:
        explicit Reader(int from);
        ~Reader() override;
        bool read(const Point& point, int most = turn) const;
        void event(int code) override;
        bool isOpen() const { return m_open; }
    private:
        bool m_open = false;
        int m_count{0};
    };
    }
"""
DEFINED = """
    bool Reader::read(const Point& point, int most) const { return m_open && point.x > most; }
    Reader::Reader(int from) : m_count(from) {}
"""
# what users say, what is left
USERS = (
    ("nobody", "", {"left", "right", "rank", "Name", "doubled", "Reader", "read", "isOpen"}),
    ("everyone", "Name n(Reader& r, Point p) { p.rank = doubled(2); return r.isOpen() && r.read(p) && Side::left != right; }",
     set()),
    ("comments and texts do not count", '// Side::left\nauto x = "right rank"; Name doubled2(Reader&);',
     {"left", "right", "rank", "doubled", "read", "isOpen"}),
    ("a definition does not count", "bool Reader::isOpen() const { return left; }\nName rank2(Reader);",
     {"right", "rank", "doubled", "read", "isOpen"}),
    ("a parameter's name does not count", "Name f(Reader r, int rank, bool isOpen = false);",
     {"left", "right", "rank", "doubled", "read", "isOpen"}),
)


class UnusedNames(unittest.TestCase):
    def test_names(self):
        for name, user, left in USERS:
            with self.subTest(name), tempfile.TemporaryDirectory() as root:
                for path, text in (("host/db/a.h", DECLARED), ("host/db/a.cpp", '#include "a.h"\n' + DEFINED),
                                   ("host/ed/b.cpp", user), ("module/x.h", "int other();")):
                    file = Path(root, path)
                    file.parent.mkdir(parents=True, exist_ok=True)
                    file.write_text(text)
                found = unused_names.unused(root, lambda file: unused_names.is_of_house(file, ("host",)))
                self.assertEqual({one.name for one in found}, left)
                self.assertEqual([str(file) for file in unused_names.headers_alone(root, ("module",))], ["module/x.h"])


if __name__ == "__main__":
    unittest.main()
