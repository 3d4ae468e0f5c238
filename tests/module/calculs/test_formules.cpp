// The language of weight formulas.

#include <cmath>

#include <gtest/gtest.h>

#include "calculs/formules/automateLexical.h"
#include "calculs/formules/fichierFormules.h"
#include "calculs/formules/formule.h"
#include "services/codages.h"

namespace {

TEST(Formule, ReadPrintedEvaluated)
{
    struct ligne {
        const char* nom;
        const char* texte;
        const char* message;
        double valeur;
    };
    const ligne lignes[] = {
        {"differences nest to the right", "10-4-3", "OK : ( 10.0000 - ( 4.0000 - 3.0000 ) )", 9.0},
        {"quotients nest to the right", "8/4/2", "OK : ( 8.0000 / ( 4.0000 / 2.0000 ) )", 4.0},
        {"powers nest to the right", "2^3^2", "OK : ( 2.0000 ^ ( 3.0000 ^ 2.0000 ) )", 512.0},
        {"rank of operations", "1+2*3^2-4", "OK : ( 1.0000 + ( ( 2.0000 * ( 3.0000 ^ 2.0000 ) ) - 4.0000 ) )", 15.0},
        {"a product ends before a sum", "2*3+4", "OK : ( ( 2.0000 * 3.0000 ) + 4.0000 )", 10.0},
        {"negated name", "-x", "OK : (-x)", -3.0},
        {"a sign before a parenthesis is dropped", "-(x)", "OK : x", 3.0},
        {"a sign binds tighter than the power", "-2^2", "OK : ( -2.0000 ^ 2.0000 )", 0.25},
        {"negative base, odd exponent", "(-2)^3", "OK : ( -2.0000 ^ 3.0000 )", -0.125},
        {"negative base, negative exponent", "(-2)^-2", "OK : ( -2.0000 ^ -2.0000 )", 0.25},
        {"negative base, exponent 0", "(-2)^0", "OK : ( -2.0000 ^ 0.0000 )", 1.0},
        {"negative base, broken exponent", "(-2)^0.5", "OK : ( -2.0000 ^ 0.5000 )", 0.0},
        {"zero base", "0^0", "OK : ( 0.0000 ^ 0.0000 )", 0.0},
        {"runs of signs", "--+-5", "OK : -5.0000", -5.0},
        {"division by zero", "x/0", "OK : ( x / 0.0000 )", 0.0},
        {"unknown name", "1+inconnue", "OK : ( 1.0000 + inconnue )", 1.0},
        {"names count to the letter", "X", "OK : X", 0.0},
        {"exponents", "1.5E3+2e-1", "OK : ( 1500.0000 + 0.2000 )", 1500.2},
        {"no digit before the full stop", ".5", "OK : 0.5000", 0.5},
        {"none after it", "1.*2", "OK : ( 1.0000 * 2.0000 )", 2.0},
        {"blanks vanish inside numbers", "1 2\t+ 1", "OK : ( 12.0000 + 1.0000 )", 13.0},
        {"nothing", "", "OK : ", 0.0},
        {"empty parentheses", "()", "OK : ", 0.0},
        {"a lone sign", "-", "OK : ", 0.0},
        {"a missing right operand", "x+", "OK : ", 3.0},
        {"a missing operand inside", "x+*3", "OK : ( x +  )", 3.0},
        {"exponent without digits", "1E", "Erreur dans la formule", 0.0},
        {"exponent right after the full stop", "1.E5", "Erreur dans la formule1.0000", 1.0},
        {"underscore", "a_b", "Erreur dans la formulea", 0.0},
        {"parenthesis not closed", "2*(x+1", "Erreur dans la formule( 2.0000 * ( x + 1.0000 ) )", 8.0},
        {"parenthesis too many", "x)", "Erreur dans la formulex", 3.0},
        {"a fault in the right operand", "x+1E", "Erreur dans la formule", 3.0},
        {"two operands in a row", "(2(3))", "Erreur dans la formule2.0000", 2.0},
        {"a full stop alone", ".", "Erreur dans la formule", 0.0},
    };
    tableVariables table;
    table.definir({"x", 3.0, ""});
    for (const ligne& l : lignes) {
        SCOPED_TRACE(l.nom);
        EXPECT_EQ(messageVerification(l.texte), l.message);
        formule f;
        f.analyser(l.texte);
        EXPECT_DOUBLE_EQ(f.evaluer(table), l.valeur);
    }
}

TEST(Formule, DeepNesting)
{
    constexpr int profondeur = 300'000;
    std::string parentheses, somme = "0";
    for (int i = 0; i < profondeur; ++i) {
        parentheses += "(1+";
        somme += "+1";
    }
    parentheses += "1" + std::string(profondeur, ')');
    for (const std::string& texte : {parentheses, somme}) {
        formule f;
        ASSERT_TRUE(f.analyser(texte));
        EXPECT_NEAR(f.evaluer({}), profondeur, 1.5);
        EXPECT_GT(f.texte().size(), texte.size());
    }
}

TEST(Formule, KeptPositionsOfNames)
{
    tableVariables table;
    table.definir({"a", 1.0, ""});
    table.definir({"b", 2.0, ""});
    formule f;
    ASSERT_TRUE(f.analyser("b"));
    EXPECT_EQ(f.evaluer(table, true), 2.0);
    table.supprimer(0); // what was kept is stale: no variable stands there
    EXPECT_EQ(f.evaluer(table, true), 0.0);
    EXPECT_EQ(f.evaluer(table), 2.0);
}

TEST(Variables, Names)
{
    tableVariables table;
    table.definir({"k", 2.0, "constante"});
    EXPECT_EQ(nomDeVariable(" .;,k2, "), "k2");
    EXPECT_EQ(nomDeVariable("\tk"), "\tk");
    EXPECT_FALSE(nomDeVariableLibre(table, ""));
    EXPECT_FALSE(nomDeVariableLibre(table, "k"));
    EXPECT_TRUE(nomDeVariableLibre(table, "K"));
    EXPECT_EQ(table.valeur(7), 0.0);
}

TEST(Formules, FileAndBack)
{
    formulesPoids f{"1/(a*d1)^2", "", "100/d1", {}};
    f.variables.definir({"a", 2.5, "appareil : \xAB T2 \xBB"});
    f.variables.definir({"b", -1e-7, ""});
    formulesPoids relues;
    EXPECT_TRUE(lireFormules(contenuFormules(f), relues).empty());
    EXPECT_EQ(relues, f);
    // In UTF-8 it is the same.
    formulesPoids enUtf8;
    EXPECT_TRUE(lireFormules(versUtf8(depuisAnsi(contenuFormules(f))), enUtf8).empty());
    EXPECT_EQ(enUtf8, f);
    const auto remarques = lireFormules("Formule: poids \"1\"\nbruit\n", relues);
    ASSERT_EQ(remarques.size(), 2u);
    EXPECT_EQ(remarques[1].numero, 2u);
}

} // namespace
