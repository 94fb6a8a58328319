#pragma once

namespace pyxis {

// Which flags of the request a converter looks at: B adds EXHV ISP to A, C adds ISP to B.
enum class ArgumentClass { A, B, C };

}  // namespace pyxis
