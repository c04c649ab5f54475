#!/usr/bin/env python3
"""Usage: real_input.py x64|x86 QUILLHOST.EXE SCENARIO FOLDER [looks]

Plays the main job in the real dialog with nothing but mouse and keys: a display of its own (Xvfb, a
light window manager), xdotool for the hand. Leaves pictures in FOLDER. With "looks" it only takes
pictures, of what a dialog without a display does not show: the pointer, the menu, the highlight,
the focus and the open list, at 96, 144 and 192 dots per inch, also in high contrast.
Exit code 77: no display can be had here.
"""
import contextlib
import ctypes
import glob
import mmap
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import time
import zlib

HOST_TITLE = "Quillstart reference host"
PATIENCE = 120  # seconds, for whatever the machine is busy with
TWIPS_PER_INCH = 1440
# Without title bars, for which xdotool corrects places twice.
WINDOW_MANAGER = """<openbox_config xmlns="http://openbox.org/3.4/rc">
<mouse><context name="Client"><mousebind button="Left" action="Press">
<action name="Focus"/><action name="Raise"/></mousebind></context></mouse>
<applications><application class="*"><decor>no</decor></application></applications>
</openbox_config>"""


class Screen:
    """The display's memory, as Xvfb keeps it in a file."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        header = struct.unpack(">25I", self.memory[:100])
        self.width, self.height, self.line = header[4], header[5], header[12]
        self.begin = header[0] + header[19] * 12

    def area(self, left, top, width, height):
        first = self.begin + top * self.line + left * 4
        return b"".join(self.memory[at:at + width * 4]
                        for at in range(first, first + height * self.line, self.line))

    def save(self, path, left, top, width, height):
        self.save_pixels(path, self.area(left, top, width, height), width)

    def save_pixels(self, path, pixels, width):
        rgb = bytearray(len(pixels) // 4 * 3)
        rgb[0::3], rgb[1::3], rgb[2::3] = pixels[2::4], pixels[1::4], pixels[0::4]
        lines = b"".join(b"\0" + rgb[at:at + width * 3] for at in range(0, len(rgb), width * 3))
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n")
            for kind, data in ((b"IHDR", struct.pack(">IIBBBBB", width, len(pixels) // width // 4,
                                                     8, 2, 0, 0, 0)),
                               (b"IDAT", zlib.compress(lines)), (b"IEND", b"")):
                file.write(struct.pack(">I", len(data)) + kind + data +
                           struct.pack(">I", zlib.crc32(kind + data)))


def until(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    sys.exit(f"real input: waited in vain for {what}")


class Job:
    def __init__(self, run, host, words, folder, environment, screen, dots=96):
        self.environment, self.screen, self.folder = environment, screen, folder
        self.dots = dots
        self.lines = []
        self.host = subprocess.Popen(
            [run, host, "window", *words], env=environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
        threading.Thread(target=self.read, daemon=True).start()
        self.left = self.top = 0

    def end(self):
        if self.host.poll() is None:
            self.host.terminate()
        self.host.wait()

    def pixels(self, twips):
        return twips * self.dots // TWIPS_PER_INCH

    def read(self):
        for line in self.host.stdout:
            print(line.rstrip(), flush=True)
            self.lines.append(line.rstrip())

    def has_told(self, pattern, since=0):
        return next((m for m in (re.search(pattern, line) for line in self.lines[since:]) if m),
                    None)

    def hand(self, *words):
        return subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=False,
                              capture_output=True, text=True).stdout

    def window(self, title):
        return self.hand("search", "--onlyvisible", "--name", title).split()

    def enter(self, title):
        """Waits until the window is the active one; places are relative to it from now on."""
        window = until(title, lambda: self.window(f"^{title}$"))[0]
        self.settle()
        place = dict(re.findall(r"(\w+)=(-?\d+)",
                                self.hand("getwindowgeometry", "--shell", window)))
        self.left, self.top = int(place["X"]), int(place["Y"])
        width, height = int(place["WIDTH"]), int(place["HEIGHT"])
        until(title + " to be active",
              lambda: self.hand("getactivewindow").strip() == window)
        return width, height

    def settle(self):
        """Until the screen has stopped changing."""
        self.before, same = None, 0

        def same_again():
            nonlocal same
            time.sleep(0.1)
            now = self.screen.area(0, 0, self.screen.width, self.screen.height)
            same = same + 1 if now == self.before else 0
            self.before = now
            return same >= 3
        until("the screen to settle", same_again)

    def point(self, x, y):
        """At twips of the dialog."""
        self.hand("mousemove", "--sync", self.left + self.pixels(x), self.top + self.pixels(y))

    def click(self, x, y, times=1, button=1):
        self.point(x, y)
        self.hand("click", "--repeat", times, "--delay", 60, button)
        self.settle()

    def keys(self, *names):
        self.hand("key", "--delay", 60, *names)
        self.settle()

    def picture(self, name):
        self.screen.save(os.path.join(self.folder, name + ".png"), 0, 0, self.screen.width,
                         self.screen.height)


# Places in twips of the dialog, as the design has them.
PAGE_LEFT, PAGE_TOP = 120, 480
TABS = {"Server Settings": 600, "Map Settings": 1950, "Misc Options": 3100}
TAB_TOP = 165
ROW = 195
SCORE_ARROW_DOWN = (PAGE_LEFT + 6240 + 1035 - 120, PAGE_TOP + 270 + 360 + 285 - 60)
KILLS_ARROW_DOWN = (PAGE_LEFT + 6240 + 1035 - 120, PAGE_TOP + 270 + 285 - 60)
AVAILABLE = (PAGE_LEFT + 120 + 600, PAGE_TOP + 930 + 30)
SELECTED = (PAGE_LEFT + 4815 + 600, PAGE_TOP + 495 + 30)
MODS = (PAGE_LEFT + 6240 + 300, PAGE_TOP + 270 + 7 * 360 + 150)
CHECK_LOOP = (PAGE_LEFT + 1440 + 120, PAGE_TOP + 270 + 7 * 360 + 120)
LABEL_LOOP = (PAGE_LEFT + 120 + 300, PAGE_TOP + 270 + 7 * 360 + 140)
START_EDGE = (60, 3720 + 900)
START = (120 + 1440 + 600, 3720 + 240 + 250)


def row(list_place, number):
    return list_place[0], list_place[1] + number * ROW + ROW // 2


class Image(ctypes.Structure):
    """XImage, up to its pixels."""
    _fields_ = [(name, ctypes.c_int) for name in ("width", "height", "xoffset", "format")] + [
        ("data", ctypes.c_void_p)]


class Camera:
    """Asks the display server for pictures. It takes them between two requests of other programs,
    so that none shows a request half done, as the display's memory does."""

    def __init__(self, display):
        self.library = ctypes.CDLL("libX11.so.6")
        self.library.XOpenDisplay.restype = ctypes.c_void_p
        self.library.XDefaultRootWindow.restype = ctypes.c_ulong
        self.library.XGetImage.restype = ctypes.POINTER(Image)
        self.display = ctypes.c_void_p(self.library.XOpenDisplay(display.encode()))
        self.root = ctypes.c_ulong(self.library.XDefaultRootWindow(self.display))

    def area(self, left, top, width, height):
        all_planes, by_pixel = ctypes.c_ulong(0xFFFFFFFF), 2
        image = self.library.XGetImage(self.display, self.root, left, top, width, height,
                                       all_planes, by_pixel)
        pixels = ctypes.string_at(image.contents.data, width * height * 4)
        self.library.XFree(ctypes.c_void_p(image.contents.data))
        self.library.XFree(image)
        return pixels


def switch_tabs(job, width, height):
    """Every picture taken meanwhile is one of the three pages, whole.

    Wine shows what is drawn so far when a page takes longer than 50 ms, as on a machine that has much
    else to do. So a picture of no whole page counts when it is taken earlier, or when more than
    half of the switches have one."""
    camera = Camera(job.environment["DISPLAY"])
    whole = []
    # Below the tabs, where pointer and focus are.
    tabs = job.pixels(PAGE_TOP)
    area = (job.left, job.top + tabs, width, height - tabs)
    for x in TABS.values():
        job.click(x, TAB_TOP)
        whole.append(camera.area(*area))
    assert len(set(whole)) == 3, "the three tabs do not look different"
    stop, taken, seen, clicked = threading.Event(), 0, None, 0.0
    early, late = {}, {}  # by the switch

    def watch():
        nonlocal taken, seen
        while not stop.is_set():
            seen = camera.area(*area)
            taken += 1
            if seen not in whole:
                (early if time.monotonic() < clicked + 0.05 else late)[turn] = seen
            time.sleep(0.001)
    turn = 0
    watcher = threading.Thread(target=watch, daemon=True)
    watcher.start()
    for turn in range(100):
        job.point(list(TABS.values())[turn % 3], TAB_TOP)
        clicked = time.monotonic()
        job.hand("click", 1)
        until("the page", lambda: seen == whole[turn % 3])
    stop.set()
    watcher.join()
    print(f"real input: {taken} pictures during 100 switches; of no whole page in "
          f"{len(early)} switches, and in {len(late)} that took longer than Wine waits")
    if early or len(late) > 50:
        odd = [*early.values(), *late.values()][0]
        job.screen.save_pixels(os.path.join(job.folder, "odd.png"), odd, width)
        sys.exit("real input: a page is seen half painted")


def hold_space(job):
    """The face of a button is pressed as long as the key is held."""
    face = (job.left + job.pixels(PAGE_LEFT + 3500), job.top + job.pixels(PAGE_TOP + 240), 20, 20)
    job.keys("alt+n")  # and the focus is there
    released = job.screen.area(*face)
    job.hand("keydown", "space")
    job.settle()
    pressed = job.screen.area(*face)
    job.hand("keyup", "space")
    job.settle()
    assert pressed != released, "Space held does not press the button"
    assert job.screen.area(*face) == released, "the button stays pressed"


def open_dialog(job):
    until("the host's window", lambda: job.has_told("^host: the window is open"))
    job.enter(HOST_TITLE)
    told = len(job.lines)
    job.keys("alt+o")
    until("the reply", lambda: job.has_told("^relay: delivering a reply", told))
    return job.enter("Select Hosting Options")


def hide_dialog(job):
    """By the button of the small window below the host's."""
    told = len(job.lines)
    place = dict(re.findall(r"(\w+)=(-?\d+)", job.hand(
        "getwindowgeometry", "--shell", job.window(f"^{HOST_TITLE}$")[-1])))
    job.hand("mousemove", "--sync", int(place["X"]) + 80, int(place["Y"]) + int(place["HEIGHT"]) + 30,
             "click", 1)
    until("the dialog to close", lambda: job.has_told("^host: the dialog is closed", told))


def play(job):
    open_dialog(job)
    hide_dialog(job)
    size = open_dialog(job)  # with a key that the host's window hears
    tabs = (job.left, job.top, size[0], job.pixels(PAGE_TOP))
    first = job.screen.area(*tabs)
    job.keys("ctrl+Next")
    assert job.screen.area(*tabs) != first, "the dialog does not hear the keys"
    job.keys("ctrl+Prior")
    job.click(*KILLS_ARROW_DOWN)  # gives the list the focus
    job.hand("type", "--delay", 60, "250")
    job.settle()
    job.point(*SCORE_ARROW_DOWN)
    job.hand("mousedown", 1)  # repeats by itself
    time.sleep(2)
    job.hand("mouseup", 1)
    job.settle()
    job.click(*LABEL_LOOP)
    job.picture("server-settings")

    job.click(TABS["Map Settings"], TAB_TOP)
    job.click(*row(AVAILABLE, 0))
    job.keys("ctrl+a")
    job.keys("plus")
    # Fast double clicks: each removes what is under the pointer then.
    job.click(*row(SELECTED, 3), times=4)
    job.click(*row(SELECTED, 2))
    job.keys("alt+Home")
    job.keys("alt+Down")
    job.keys("Delete")
    job.keys("ctrl+z")
    job.click(*row(SELECTED, 0), button=3)
    job.picture("menu")
    job.keys("Escape")
    job.keys("shift+F10")
    # Past Remove, the first that can be used from the top, to Move Down.
    job.keys("Down", "Down", "Down", "Down", "Return")
    job.picture("map-settings")

    hold_space(job)
    switch_tabs(job, *size)
    job.click(*START)
    kept = until("the start record", lambda: job.has_told(r"maps; kept in (.*)"))
    record = read_record(kept.group(1))
    until("the dialog to close", lambda: job.has_told("^host: the dialog is closed"))
    job.enter(HOST_TITLE)
    job.keys("alt+F4")
    until("the host to end", lambda: job.host.poll() is not None)
    wanted = ["Loop maps +no ", "Max kills +250 ", r"Game score +(5[4-9]|[6-9]\d|\d{3}) ",
              "Rotation: 8 maps"] + [
        f" {number} +Deathmatch +{name} " for number, name in enumerate(
            ["Cracked", "Road Rage", "City Madness", "Stadium Riot", "Desert Funeral",
             "Devil Dogs", "Squirrels Nest", "Harbour Yard"], 1)]
    missing = [line for line in wanted if not re.search(line, record)]
    if missing:
        print(record)
        sys.exit(f"real input: the start record lacks {missing}")
    print("real input: the main job is done")
    return job.host.returncode


def read_record(windows_path):
    path = windows_path.replace("\\", "/")
    if path.startswith("Z:"):
        path = path[2:]
    else:
        path = glob.glob(os.environ["QUILL_WINE_SESSION"] + "/x11-*/drive_c" + path[2:])[0]
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read()


def look(job, name):
    width, height = open_dialog(job)

    def picture(what, pointer=None):
        job.point(*(pointer or START_EDGE))
        if what == "busy":
            time.sleep(2)  # its pointer may move for ever
        else:
            job.settle()
        path = os.path.join(job.folder, f"{name}-{what}.png")
        job.screen.save(path, job.left, job.top, min(width + 60, job.screen.width - job.left),
                        height)
        print("picture:", path, flush=True)
    job.click(*KILLS_ARROW_DOWN)
    picture("highlight")
    job.click(*CHECK_LOOP)
    picture("check-box")
    job.click(*MODS)
    picture("drop-down", MODS)
    job.keys("Escape")
    job.click(TABS["Misc Options"], TAB_TOP)
    picture("misc-options")
    job.click(TABS["Map Settings"], TAB_TOP)
    job.click(*row(AVAILABLE, 0))
    job.keys("ctrl+a", "plus", "plus")
    job.click(*row(SELECTED, 3))
    job.click(*row(SELECTED, 1), button=3)
    picture("menu", row(SELECTED, 1))
    job.keys("Escape", "alt+n")
    job.hand("keydown", "space")
    picture("button")
    job.hand("keyup", "space")
    job.point(*START)
    job.hand("click", 1)
    until("the start request", lambda: job.has_told("^remote: never answering"))
    picture("busy", MODS)


@contextlib.contextmanager
def display():
    """What programs need to find it, and its screen: None where it does not start."""
    with tempfile.TemporaryDirectory() as frames:
        reads, writes = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writes), "-screen", "0", "1440x1024x24", "-fbdir", frames,
             "-nolisten", "tcp"], pass_fds=[writes], stderr=subprocess.DEVNULL)
        os.close(writes)
        number = os.read(reads, 16).decode().strip()
        if not number:
            yield None, None
            return
        environment = dict(os.environ, DISPLAY=":" + number, QUILL_WINE_DISPLAY="x11")
        rules = os.path.join(frames, "rc.xml")
        with open(rules, "w", encoding="utf-8") as file:
            file.write(WINDOW_MANAGER)
        manager = subprocess.Popen(["openbox", "--config-file", rules], env=environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            yield environment, Screen(os.path.join(frames, "Xvfb_screen0"))
        finally:
            for process in (manager, server):
                process.terminate()
                process.wait()


def main(arch, host, scenario, folder, looks=None):
    wine = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../../tools/wine")
    if "QUILL_WINE_SESSION" not in os.environ:
        session = os.path.join(wine, "session")
        os.execv(session, [session, arch, sys.executable, os.path.abspath(__file__), *sys.argv[1:]])
    run = os.path.join(wine, "run")
    if not all(shutil.which(tool) for tool in ("Xvfb", "openbox", "xdotool")):
        print("real input: left out, because Xvfb, openbox or xdotool is not installed")
        return 77
    os.makedirs(folder, exist_ok=True)
    with contextlib.suppress(OSError):
        os.nice(-10)  # what other programs do is not what is tried
    with display() as (environment, screen):
        if screen is None:
            print("real input: left out, because Xvfb does not start here")
            return 77
        if not looks:
            job = Job(run, host, [scenario], folder, environment, screen)
            try:
                return play(job)
            finally:
                job.picture("last")
                job.end()
        with open(scenario, encoding="utf-8") as file:
            machine = re.sub("Action *=.*", "Action = never answer", file.read())
        machine = re.sub("(GS Max Players|GS Custom Skins Option) *= 1", r"\1 = 0", machine)
        machine = machine.replace("[Mods]", "[Mods]\nA mod whose name is longer than its box")
        scenario = os.path.join(folder, "silent.scenario")
        with open(scenario, "w", encoding="utf-8") as file:
            file.write(machine)
        for dots in (96, 144, 192):
            subprocess.run([run, "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t",
                            "REG_DWORD", "/d", str(dots), "/f"], env=environment, check=True,
                           stdout=subprocess.DEVNULL)
            for words, name in (([], "plain"), (["--high-contrast"], "high-contrast")):
                job = Job(run, host, [*words, scenario], folder, environment, screen, dots)
                try:
                    look(job, f"{dots}-{name}")
                finally:
                    job.end()
        return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
