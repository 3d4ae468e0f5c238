#pragma once

#include <map>
#include <string>
#include <string_view>

struct XML_ParserStruct; // of expat

/// Reads an XML text in one pass; a format overrides what an element means. Elements nested too deep are refused.
class lecteurXml {
public:
    using attributs = std::map<std::string, std::string, std::less<>>; // UTF-8

    lecteurXml(const lecteurXml&) = delete;
    lecteurXml& operator=(const lecteurXml&) = delete;

protected:
    lecteurXml();
    virtual ~lecteurXml();

    void analyser(std::string_view contenu);
    virtual void debut(std::string_view nom, const attributs& a) = 0;
    /// @param texte between the element's tags, of an element that said `garderTexte` when it began
    virtual void fin(std::string_view nom, std::string_view texte) = 0;
    /// The text cannot be read on, and why, in French.
    virtual void malForme(std::wstring phrase) = 0;

    void garderTexte() { m_garderTexte = true; }
    /// Nothing more is read.
    void arreter();
    bool arrete() const { return m_arrete; }
    /// Where the reader is, from 1.
    int ligne() const;

private:
    static void ouvrir(void* moi, const char* nom, const char** paires);
    static void fermer(void* moi, const char* nom);
    static void ajouter(void* moi, const char* octets, int nombre);

    XML_ParserStruct* m_analyseur;
    std::string m_texte;
    int m_profondeur = 0;
    bool m_garderTexte = false, m_arrete = false;
};
