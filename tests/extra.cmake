# The surface of a widget once more at each device pixel ratio, which a process cannot change, and on
# a display server: offscreen tests prove neither that changes reach the screen nor that scrolled
# pixels are read right.

find_program(XVFB_RUN xvfb-run)

# At the ratios that follow the folder, or at all four.
function(zenu_ratio_tests folder)
    set(ratios ${ARGN})
    if(NOT ratios)
        set(ratios 1 1.25 1.5 2)
    endif()
    foreach(ratio IN LISTS ratios)
        if(NOT ratio STREQUAL "1")
            add_test(NAME ${folder}_offscreen_${ratio} COMMAND tests_${folder})
            set_tests_properties(${folder}_offscreen_${ratio} PROPERTIES
                ENVIRONMENT "${zenu_test_environment};QT_SCALE_FACTOR=${ratio}" TIMEOUT 600)
        endif()
        if(XVFB_RUN)
            add_test(NAME ${folder}_xcb_${ratio}
                COMMAND ${XVFB_RUN} -a -s "-screen 0 1600x1200x24" $<TARGET_FILE:tests_${folder}>)
            set_tests_properties(${folder}_xcb_${ratio} PROPERTIES
                ENVIRONMENT "${zenu_test_environment};QT_QPA_PLATFORM=xcb;QT_SCALE_FACTOR=${ratio}"
                TIMEOUT 600 RESOURCE_LOCK display_server)
        endif()
    endforeach()
endfunction()

zenu_ratio_tests(surface)
# Where scrolled pixels cannot be fetched everything is painted again instead of moved.
if(XVFB_RUN)
    add_test(NAME surface_xcb_nothing_moves
        COMMAND ${XVFB_RUN} -a -s "-screen 0 1600x1200x24" $<TARGET_FILE:tests_surface>)
    set_tests_properties(surface_xcb_nothing_moves PROPERTIES
        ENVIRONMENT "${zenu_test_environment};QT_QPA_PLATFORM=xcb;QT_NO_FAST_SCROLL=1;QT_NO_FAST_MOVE=1"
        TIMEOUT 600 RESOURCE_LOCK display_server)
endif()
zenu_ratio_tests(sprites)
# A window that goes to a screen of another ratio.
add_test(NAME sprites_two_screens COMMAND tests_sprites -class tst_SpritePaintEvents)
set_tests_properties(sprites_two_screens PROPERTIES TIMEOUT 600 ENVIRONMENT
    "${zenu_test_environment};QT_QPA_PLATFORM=offscreen:configfile=${CMAKE_CURRENT_LIST_DIR}/sprites/two-screens.json;QT_SCREEN_SCALE_FACTORS=fine=2")
# A ratio that has no binary number, so that painters round it.
add_test(NAME sprites_offscreen_1.1 COMMAND tests_sprites -class tst_RandomSprites)
set_tests_properties(sprites_offscreen_1.1 PROPERTIES
    ENVIRONMENT "${zenu_test_environment};QT_SCALE_FACTOR=1.1" TIMEOUT 600)
# An editor that lies still over a grid that scrolls; with a display server the focus really moves.
zenu_ratio_tests(grid_editing)
zenu_ratio_tests(grid_drag)
# Popups that take the focus, grabs of the keyboard, and a paste with the middle button.
zenu_ratio_tests(scroll 1)
# Keys, menus and tool buttons of actions.
zenu_ratio_tests(command 1)

# The explorer example is also tested as the program that it is.
if(TARGET tests_explorer)
    target_compile_definitions(tests_explorer PRIVATE
                               ZENU_EXPLORER="$<TARGET_FILE:zenu_explorer>")
    add_dependencies(tests_explorer zenu_explorer)
    # A walk with real events, which skips itself without xdotool.
    if(XVFB_RUN)
        add_test(NAME explorer_walk COMMAND ${XVFB_RUN} -a -s "-screen 0 1600x1200x24"
                 $<TARGET_FILE:tests_explorer> -class tst_Walk)
        set_tests_properties(explorer_walk PROPERTIES
            ENVIRONMENT "${zenu_test_environment};QT_QPA_PLATFORM=xcb"
            TIMEOUT 600 RESOURCE_LOCK display_server)
    endif()
endif()

# The grid's scrolled picture at the ratios where a blit falls between device pixels or is refused,
# and the header's picture and drag line where an edge falls between them.
foreach(folder grid_blit header)
    foreach(ratio 1.25 1.5 2)
        add_test(NAME ${folder}_${ratio} COMMAND tests_${folder})
        set_tests_properties(${folder}_${ratio} PROPERTIES
            ENVIRONMENT "${zenu_test_environment};QT_SCALE_FACTOR=${ratio}" TIMEOUT 600)
    endforeach()
endforeach()

# Menus that take the mouse of a display server, and at a ratio where widgets in them scale.
if(XVFB_RUN)
    foreach(class tst_ColorButtonPopup tst_ColorButtonClosing tst_KColorPopup tst_ColorPopupInput
            tst_PageSelectorInput)
        foreach(ratio 1 2)
            add_test(NAME ${class}_xcb_${ratio} COMMAND ${XVFB_RUN} -a -s "-screen 0 1600x1200x24"
                     $<TARGET_FILE:tests_widgets> -class ${class})
            set_tests_properties(${class}_xcb_${ratio} PROPERTIES
                ENVIRONMENT "${zenu_test_environment};QT_QPA_PLATFORM=xcb;QT_SCALE_FACTOR=${ratio}"
                TIMEOUT 600 RESOURCE_LOCK display_server)
        endforeach()
    endforeach()
endif()

# Drags by a mouse that xdotool moves, and dialogs at another ratio.
if(XVFB_RUN)
    add_test(NAME real_drags COMMAND ${XVFB_RUN} -a -s "-screen 0 1600x1200x24"
             $<TARGET_FILE:tests_events> -class tst_RealDrag)
    set_tests_properties(real_drags PROPERTIES
        ENVIRONMENT "${zenu_test_environment};QT_QPA_PLATFORM=xcb"
        TIMEOUT 600 RESOURCE_LOCK display_server)
endif()
foreach(class FileDialogRows KPageSelector PageSelectorInput)
    add_test(NAME ${class}_2 COMMAND tests_widgets -class tst_${class})
    set_tests_properties(${class}_2 PROPERTIES
        ENVIRONMENT "${zenu_test_environment};QT_SCALE_FACTOR=2" TIMEOUT 600)
endforeach()

# The gallery once more at the ratio that a process cannot change; its sources say what it shows.
if(TARGET tests_gallery)
    target_compile_definitions(tests_gallery PRIVATE ZENU_SOURCES="${PROJECT_SOURCE_DIR}")
    add_test(NAME gallery_2 COMMAND tests_gallery -class tst_Pages)
    set_tests_properties(gallery_2 PROPERTIES
        ENVIRONMENT "${zenu_test_environment};QT_SCALE_FACTOR=2" TIMEOUT 600)
endif()

# The tests on a display server wait for each other, so they begin first and run beside the rest.
get_property(all_tests DIRECTORY PROPERTY TESTS)
foreach(test IN LISTS all_tests)
    get_test_property(${test} RESOURCE_LOCK lock)
    if("${lock}" STREQUAL "display_server")
        set_tests_properties(${test} PROPERTIES COST 1000)
    endif()
endforeach()
