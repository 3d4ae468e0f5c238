#include <stdexcept>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispContext.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "platform/CodePage.h"

/// Loops of the evaluator, 10^4 to 10^6 turns: what a turn costs must not depend on how many there are.

namespace {

class sansHote : public LispHost {
    void print(const std::wstring&) override {}
};

/// A program in which N stands for the number of turns.
struct boucle {
    const char* nom;
    const wchar_t* preparation;
    const wchar_t* travail;
    const wchar_t* attendu; ///< for N = 10 000, true when the value is right
};

constexpr boucle boucles[] = {
    {"repeat, an addition", L"", L"(setq s 0) (repeat N (setq s (+ s 1)))", L"(= s 10000)"},
    {"while, a counter of reals", L"", L"(setq i 0.0) (while (< i N) (setq i (+ i 1.0)))", L"(= i 10000.0)"},
    {"foreach over a list", L"(setq l nil) (repeat N (setq l (cons 2 l)))",
     L"(setq s 0) (foreach x l (setq s (+ s x)))", L"(= s 20000)"},
    {"calls of a function with a local", L"(defun f (x / y) (setq y (* x x)) y)",
     L"(setq i 0) (while (< i N) (setq r (f i) i (1+ i)))", L"(= r 99980001)"},
    {"mapcar of a lambda", L"(setq l nil) (repeat N (setq l (cons 3 l)))", L"(setq r (mapcar '(lambda (x) (* 2 x)) l))",
     L"(and (= (length r) 10000) (= (car r) 6))"},
    {"cons, then reverse", L"", L"(setq l nil) (repeat N (setq l (cons 1 l))) (setq l (reverse l))",
     L"(= (length l) 10000)"},
    {"cond with strings", L"(setq m \"b\")",
     L"(setq k 0) (repeat N (cond ((= m \"a\") (setq k -1)) ((= m \"b\") (setq k (1+ k)))))", L"(= k 10000)"},
    {"polar and distance", L"(setq o '(0.0 0.0 0.0))", L"(repeat N (setq d (distance o (polar o 0.5 2.0))))",
     L"(equal d 2.0 1e-12)"},
};

std::wstring avecTaille(std::wstring texte, int taille)
{
    for (std::size_t place = texte.find(L'N'); place != std::wstring::npos; place = texte.find(L'N', place))
        texte.replace(place, 1, std::to_wstring(taille));
    return texte;
}

LispValue evaluer(LispContext& contexte, const std::wstring& texte)
{
    LispOutcome fin = contexte.run(texte);
    if (fin.failed)
        throw std::runtime_error(platform::utf8FromWide(fin.failureText()));
    return fin.value;
}

double secondes(const boucle& b, int taille, int passes)
{
    sansHote hote;
    LispContext contexte(hote);
    defineBuiltins(contexte);
    evaluer(contexte, avecTaille(b.preparation, taille));
    const std::wstring travail = avecTaille(b.travail, taille);
    return mediane(
        passes, [] {}, [&] { evaluer(contexte, travail); });
}

/// The loops do what they say.
void verifier()
{
    constexpr int taille = 10000;
    for (const boucle& b : boucles) {
        sansHote hote;
        LispContext contexte(hote);
        defineBuiltins(contexte);
        evaluer(contexte, avecTaille(b.preparation, taille));
        evaluer(contexte, avecTaille(b.travail, taille));
        if (evaluer(contexte, b.attendu).isNil())
            throw std::runtime_error(std::string("wrong value: ") + b.nom);
    }
}

bool mesurer(int passes)
{
    verifier();
    tableauMesures tableau({10000, 100000, 1000000}, "turn");
    tableau.enTete();
    for (const boucle& b : boucles)
        tableau.croissance(b.nom, [&](int taille) { return secondes(b, taille, passes); });
    return tableau.tenu();
}

} // namespace

int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "AutoLISP loops of 10 000 to 1 000 000 turns.", 3, mesurer);
}
