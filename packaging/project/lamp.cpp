#include <cstdio>

#include "LampMachine.h"

void house::LampMachine::say(const char* text) { std::printf(" %s", text); }

int main() {
  house::LampMachine lamp;
  std::printf("cpp");
  lamp.Start();
  lamp.Dispatch(house::LampMachine::Event::Press);
  lamp.Dispatch(house::LampMachine::Event::Press);
  std::printf("\n");
}
