// Puts a comma-decimal locale in force for the life of the object: a C++ global locale whose numbers use ","
// and group thousands with ".", and the French C locale when the machine has one. Restores "C" afterwards.
#pragma once
#include <clocale>
#include <locale>
#include <string>

namespace velorin {

struct VirguleDecimale : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class LocaleVirgule {
public:
    LocaleVirgule() : avant_(std::locale::global(std::locale(std::locale::classic(), new VirguleDecimale)))
    {
        for (const char* nom : {"fr_FR.UTF-8", "fr_FR.utf8", "fr_FR", "de_DE.UTF-8"})
            if (!cEnFrancais_ && std::setlocale(LC_ALL, nom))
                cEnFrancais_ = true;
    }
    ~LocaleVirgule()
    {
        std::locale::global(avant_);
        std::setlocale(LC_ALL, "C");
    }
    bool cEnFrancais() const { return cEnFrancais_; }

private:
    std::locale avant_;
    bool cEnFrancais_ = false;
};

}  // namespace velorin
