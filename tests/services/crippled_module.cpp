#include "services/module.h"

int absent();

QUORVANTIS_SERVICE {
  reason = "never reached";
  static int answer = absent();
  return &answer;
}
