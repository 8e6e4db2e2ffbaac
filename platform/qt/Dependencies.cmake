find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets GLOBAL)  # whoever links this links them
