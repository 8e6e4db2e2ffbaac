find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets UiTools Svg GLOBAL)  # whoever links this links them
