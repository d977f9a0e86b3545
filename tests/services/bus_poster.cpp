#include <unistd.h>

#include <cstdlib>
#include <string>

#include "services/lazy_services.h"

// Posts NAME.1 to NAME.COUNT and is gone at once.
int main(int, char** arguments) {
  services::SessionNotificationCenter center;
  for (int i = 1; i <= std::atoi(arguments[2]); ++i)
    center.post(std::string(arguments[1]) + "." + std::to_string(i));
  _exit(0);
}
