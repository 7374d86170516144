#include <zt_orvex_kit/zt_orvex_kit.h>

#include <iostream>

int main() {
    if (zt::orvex::kit::kindName(zt::orvex::NodeKind::IfStatement) != "IfStatement") return 1;
    std::cout << "kit consumer: all as expected\n";
}
