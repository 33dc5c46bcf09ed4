#include <set>
#include <string>
#include <vector>

int main() {}
