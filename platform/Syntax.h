#pragma once

namespace morvane {

/// The language whose words and marks an editor of code shows in colours.
enum class Syntax { Cpp, C, CSharp, Java, JavaScript };

}  // namespace morvane
