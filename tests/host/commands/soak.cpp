#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>

#include "db/DatabaseImpl.h"
#include "platform/CodePage.h"

#include "CommandTest.h"

/// Thousands of random commands with U and REDO among them. Whenever the history is back at a state, the drawing is the
/// one of that state, byte for byte after saving; in the end it is the one that was opened.
///
///     soak_host_commands [NUMBER OF COMMANDS [SEED]]
///
/// Without a seed one is drawn; it is printed in any case.

namespace {

std::size_t wantedCommands = 2000;
unsigned seed = 0;

/// Lines to type at random.
class Typist {
public:
    explicit Typist(unsigned from) : m_random(from) {}

    std::wstring line()
    {
        using Maker = std::wstring (Typist::*)();
        static constexpr Maker makers[] = {&Typist::draw,    &Typist::draw,    &Typist::draw,    &Typist::change,
                                           &Typist::change,  &Typist::change,  &Typist::layer,   &Typist::setting,
                                           &Typist::history, &Typist::history, &Typist::history, &Typist::nonsense};
        return (this->*makers[upTo(std::size(makers))])();
    }

private:
    std::size_t upTo(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random); }
    std::wstring oneOf(std::initializer_list<std::wstring> choices)
    {
        return *(choices.begin() + upTo(choices.size()));
    }
    /// A place of the grid on which everything is drawn, so that picking meets something.
    std::wstring place() { return std::to_wstring(upTo(100)) + L"," + std::to_wstring(upTo(100)); }
    std::wstring number(std::size_t most) { return std::to_wstring(1 + upTo(most)); }
    std::wstring name() { return L"C" + std::to_wstring(upTo(8)); }
    std::wstring some()
    {
        return oneOf({L"_L | ", L"_P | ", place() + L" | ", L"_W | " + place() + L" | " + place() + L" | ",
                      L"_C | " + place() + L" | " + place() + L" | ", L"_L | _C | 0,0 | 20,20 | ESC"});
    }

    std::wstring draw()
    {
        return oneOf({
            L"LIGNE | " + place() + L" | " + place() + L" | " + place() + L" | " + oneOf({L"", L"C", L"U | ", L"ESC"}),
            L"POLYLIGN | " + place() + L" | " + place() + L" | A | " + place() + L" | LI | " + place() + L" | " +
                oneOf({L"", L"C", L"U | U | ", L"ESC"}),
            L"POLYLIGN | " + place() + L" | LA | 1 | 2 | " + place() + L" | U | U | ",
            L"CERCLE | " + place() + L" | " + number(20),
            L"CERCLE | 3P | " + place() + L" | " + place() + L" | " + place(),
            L"ARC | " + place() + L" | " + place() + L" | " + place(),
            L"ARC | " + place() + L" | F | " + place() + L" | R | " + number(40),
            L"POINT | " + place() + L"," + number(9),
            L"TEXTE | " + place() + L" | " + number(3) + L" | " + number(360) + L" | Borne | rue | ",
            L"TEXTE | J | MC | " + place() + L" |  |  | x | ",
            L"INSERER | BORNE | " + place() + L" | " + number(3) + L" |  | " + number(360) + L" | M" + number(99) +
                L" | ",
            L"INSERER | BORNE | " + place() + L" | -1 | 1 | 0 |  | ESC",
        });
    }

    std::wstring change()
    {
        return oneOf({
            L"EFFACER | " + some(),
            L"DEPLACER | " + some() + L" | " + place() + L" | " + place(),
            L"COPIER | _L |  | " + place() + L" | " + place() + L" | " + oneOf({L"", L"U | ", place() + L" | "}),
            L"COPIER | " + place() + L" |  | 0,0 | " + place() + L" | ",
            L"ROTATION | " + some() + L" | " + place() + L" | " + number(360),
            L"ROTATION | _L |  | " + place() + L" | C | " + number(360),
            L"ECHELLE | " + some() + L" | " + place() + L" | " + oneOf({L"0.5", L"2", L"0"}),
            L"MIROIR | " + some() + L" | " + place() + L" | " + place() + L" | " + oneOf({L"O", L"N", L"ESC"}),
            L"DECOMPOS | " + some(),
            L"(entmod (subst (cons 8 \"C1\") (assoc 8 (entget (entlast))) (entget (entlast))))",
            L"(entdel (entlast))",
        });
    }

    std::wstring layer()
    {
        return L"CALQUE | " +
               oneOf({L"CR | " + name(), L"N | " + name() + L"," + name(), L"D | " + name(), L"IN | " + name(),
                      L"AC | *", L"G | " + name(), L"L | *", L"V | " + name(), L"O | *",
                      L"CO | " + number(255) + L" | " + name(), L"RE | " + name() + L" | " + name()}) +
               L" | ";
    }

    std::wstring setting()
    {
        return oneOf({L"COULEUR | " + number(255), L"COULEUR | DuCalque", L"LUPREC | " + number(8),
                      L"PDSIZE | " + number(5), L"ZOOM | _E", L"ZOOM | _P", L"LISTE | _L | ",
                      L"AIRE | " + place() + L" | " + place() + L" | ", L"SAUVERAP", L"RENOMMER | B | BORNE | BORNE",
                      L"INSBASE | " + place()});
    }

    std::wstring history()
    {
        return oneOf({L"U", L"U", L"ANNULER | " + number(6), L"RETABLIR", L"RETABLIR", L"MRETABLIR | " + number(4),
                      L"ANNULER | D", L"ANNULER | F", L"ANNULER | M", L"ANNULER | R | N"});
    }

    std::wstring nonsense()
    {
        return oneOf({L"RIEN", L"LIGNE | abc | ESC", L"(car 1)", L"INSERER | absent",
                      L"CERCLE | " + place() + L" | -1 | ESC", L"", L"ECHELLE | "});
    }

    std::mt19937 m_random;
};

class Soak : public CommandTest {
protected:
    Soak()
    {
        makeDrawing();
        typed(L"SAUVENOM | " + path() + L" | FERMER");
        typed(L"OUVRIR | " + path());
        drawing().impl().undo().clear();
        m_first = bytes();
        remember();
    }

    /// A block with attributes, and something drawn already.
    void makeDrawing()
    {
        typed(L"CALQUE | N | C1,C2,C3 | ");
        typed(LR"((progn
(entmake '((0 . "BLOCK") (2 . "BORNE") (70 . 2) (10 0.0 0.0 0.0)))
(entmake '((0 . "CIRCLE") (8 . "0") (10 0.0 0.0 0.0) (40 . 1.0)))
(entmake '((0 . "ATTDEF") (8 . "C1") (10 2.0 0.0 0.0) (40 . 1.0) (1 . "?") (3 . "Matricule") (2 . "MAT") (70 . 0)))
(entmake '((0 . "ENDBLK")))))");
        typed(L"INSERER | BORNE | 10,10 |  |  |  | 1");
        typed(L"PL | 0,0 | 50,50 | A | 60,40 | ");
        typed(L"TEXTE | 5,5 | 2 | 0 | départ | ");
    }
    std::wstring path() const { return platform::wideFromUtf8(file("plan.dxf").string()); }

    std::uint64_t state() { return drawing().impl().undo().state(); }

    void remember()
    {
        const std::string now = bytes();
        const auto [known, fresh] = m_states.emplace(state(), now);
        ASSERT_EQ(known->second == now, true) << "another drawing in the same state";
    }

    std::map<std::uint64_t, std::string> m_states;
    std::string m_first;
};

TEST_F(Soak, whatIsTakenBackIsGone)
{
    Typist typist(seed);
    for (std::size_t i = 0; i < wantedCommands; ++i) {
        const std::wstring line = typist.line();
        SCOPED_TRACE("command " + std::to_string(i) + " of seed " + std::to_string(seed) + ": " +
                     platform::utf8FromWide(line));
        typed(line);
        if (i % 10 == 0 || i < 200)
            remember();
        if (HasFailure())
            return;
        if (m_states.size() > 2000)
            m_states.erase(std::next(m_states.begin()), std::next(m_states.begin(), 1000));
    }
    std::printf("%zu entities, %zu steps to take back, %zu states met\n", entities().size(),
                drawing().impl().undo().undoable(), m_states.size());
    while (drawing().impl().undo().undo()) {
    }
    EXPECT_EQ(state(), 0U);
    EXPECT_EQ(bytes() == m_first, true) << "the drawing after all was taken back is not the one that was opened";
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    seed = std::random_device()();
    if (argc > 1)
        wantedCommands = std::strtoul(argv[1], nullptr, 10);
    if (argc > 2)
        seed = static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10));
    std::printf("%zu commands, seed %u\n", wantedCommands, seed);
    return RUN_ALL_TESTS();
}
