// The one way a failure travels through Velorin: a function that can fail
// returns an Erreur, empty on success and holding the French message on
// failure, so that `if (erreur)` always means "something went wrong" and
// `erreur.message()` is what to show. The type is [[nodiscard]]: a failure
// cannot be dropped without a word.
#pragma once
#include <optional>
#include <string>
#include <utility>

namespace velorin {

class [[nodiscard]] Erreur {
public:
    Erreur() = default;         // success
    Erreur(std::nullopt_t) { }  // success
    Erreur(std::string message) : message_(std::move(message)), echec_(true) { }
    Erreur(const char* message) : Erreur(std::string(message)) { }

    explicit operator bool() const { return echec_; }
    const std::string& message() const { return message_; }

private:
    std::string message_;
    bool echec_ = false;
};

}  // namespace velorin
