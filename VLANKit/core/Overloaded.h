#pragma once

namespace VLANKit {

/// One visitor of a variant made of several lambdas, one for each case.
template <class... Ts>
struct Overloaded : Ts...
{
    using Ts::operator()...;
};

// Clang before 17 deduces no aggregate's template arguments by itself (Apple's compilers among
// them): the guide says it.
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

} // namespace VLANKit
