// What starting and ending a process takes at least.
int main() {}
