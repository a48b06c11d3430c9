// Apart from the class: what shows no secret needs no streams, and they are more code than the rest
// of a component.
#include "platform/SecretText.h"

#include <ostream>

namespace tollvane {

std::ostream& operator<<(std::ostream& out, const SecretText& secret) {
    return out << "<secret, " << secret.size() << " characters>";
}

} // namespace tollvane
