int absent() {
  return 1;
}
