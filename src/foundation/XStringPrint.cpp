// Shows texts in test output.
#include "foundation/XString.h"

#include "foundation/XUtf8.h"

#include <memory>
#include <ostream>

void PrintTo(const XString& text, std::ostream* out) {
    const int bytes = WideToUtf8(text.Text(), nullptr, 0);
    const auto narrow = std::make_unique<char[]>(static_cast<std::size_t>(bytes));
    WideToUtf8(text.Text(), narrow.get(), bytes);
    *out << '"' << narrow.get() << '"';
}
