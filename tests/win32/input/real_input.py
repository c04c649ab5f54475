#!/usr/bin/env python3
"""Usage: real_input.py x64|x86 QUILLHOST.EXE SCENARIO FOLDER

Plays the main job in the real dialog with nothing but mouse and keys: a display of its own (Xvfb, a
light window manager), xdotool for the hand. Leaves pictures in FOLDER.
Exit code 77: no display can be had here.
"""
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

PATIENCE = 120  # seconds, for whatever the machine is busy with
TWIPS = 15  # a pixel, at 96 dots per inch
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
        with open(path, "wb") as file:
            file.write(b"P6 %d %d 255\n" % (width, len(pixels) // width // 4))
            file.write(b"".join(pixels[at + 2:at + 3] + pixels[at + 1:at + 2] + pixels[at:at + 1]
                                for at in range(0, len(pixels), 4)))


def until(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    sys.exit(f"real input: waited in vain for {what}")


class Job:
    def __init__(self, run, host, scenario, folder, environment, screen):
        self.environment, self.screen, self.folder = environment, screen, folder
        self.lines = []
        self.host = subprocess.Popen(
            [run, host, "window", scenario], env=environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
        threading.Thread(target=self.read, daemon=True).start()
        self.left = self.top = 0

    def read(self):
        for line in self.host.stdout:
            print(line.rstrip(), flush=True)
            self.lines.append(line.rstrip())

    def has_told(self, pattern):
        return next((m for m in (re.search(pattern, line) for line in self.lines) if m), None)

    def hand(self, *words):
        return subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=False,
                              capture_output=True, text=True).stdout

    def window(self, title):
        return self.hand("search", "--onlyvisible", "--name", title).split()

    def enter(self, title):
        """Clicks into the window's corner; places are relative to it from now on."""
        window = until(title, lambda: self.window(f"^{title}$"))[0]
        self.settle()
        place = dict(re.findall(r"(\w+)=(-?\d+)",
                                self.hand("getwindowgeometry", "--shell", window)))
        self.left, self.top = int(place["X"]), int(place["Y"])
        width, height = int(place["WIDTH"]), int(place["HEIGHT"])
        self.click(2 * TWIPS, (height - 3) * TWIPS)
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
        self.hand("mousemove", "--sync", self.left + x // TWIPS, self.top + y // TWIPS)

    def click(self, x, y, times=1, button=1):
        self.point(x, y)
        self.hand("click", "--repeat", times, "--delay", 60, button)
        self.settle()

    def keys(self, *names):
        self.hand("key", "--delay", 60, *names)
        self.settle()

    def picture(self, name):
        self.screen.save(os.path.join(self.folder, name + ".ppm"), 0, 0, self.screen.width,
                         self.screen.height)


# Places in twips of the dialog, as the design has them.
PAGE_LEFT, PAGE_TOP = 120, 480
TABS = {"Server Settings": 600, "Map Settings": 1950, "Misc Options": 3100}
TAB_TOP = 165
ROW = 195
KILLS_ARROW_DOWN = (PAGE_LEFT + 6240 + 1035 - 120, PAGE_TOP + 270 + 285 - 60)
AVAILABLE = (PAGE_LEFT + 120 + 600, PAGE_TOP + 930 + 30)
SELECTED = (PAGE_LEFT + 4815 + 600, PAGE_TOP + 495 + 30)
LABEL_LOOP = (PAGE_LEFT + 120 + 300, PAGE_TOP + 270 + 7 * 360 + 140)
START = (120 + 1440 + 600, 3720 + 240 + 250)


def row(list_place, number):
    return list_place[0], list_place[1] + number * ROW + ROW // 2


def switch_tabs(job, width, height):
    """Every picture taken meanwhile is one of the three pages, whole."""
    whole = []
    # Below the tabs, where pointer and focus are.
    tabs = PAGE_TOP // TWIPS
    area = (job.left, job.top + tabs, width, height - tabs)
    for x in TABS.values():
        job.click(x, TAB_TOP)
        whole.append(job.screen.area(*area))
    assert len(set(whole)) == 3, "the three tabs do not look different"
    stop, odd, taken = threading.Event(), [], [0]

    def watch():
        while not stop.is_set():
            picture = job.screen.area(*area)
            taken[0] += 1
            if picture not in whole:
                odd.append(picture)
    watcher = threading.Thread(target=watch)
    watcher.start()
    for turn in range(100):
        job.point(list(TABS.values())[turn % 3], TAB_TOP)
        job.hand("click", 1)
    job.settle()
    stop.set()
    watcher.join()
    print(f"real input: {taken[0]} pictures during 100 switches, {len(odd)} of no whole page")
    return odd


def hold_space(job):
    """The face of a button is pressed as long as the key is held."""
    face = (job.left + (PAGE_LEFT + 3500) // TWIPS, job.top + (PAGE_TOP + 240) // TWIPS, 20, 20)
    job.keys("alt+n")  # and the focus is there
    released = job.screen.area(*face)
    job.hand("keydown", "space")
    job.settle()
    pressed = job.screen.area(*face)
    job.hand("keyup", "space")
    job.settle()
    assert pressed != released, "Space held does not press the button"
    assert job.screen.area(*face) == released, "the button stays pressed"


def play(job):
    until("the host's window", lambda: job.has_told("^host: the window is open"))
    job.enter("Quillstart reference host")
    job.keys("alt+o")
    until("the reply", lambda: job.has_told("^relay: delivering a reply"))
    size = job.enter("Select Hosting Options")

    job.click(*KILLS_ARROW_DOWN)  # gives the list the focus
    job.hand("type", "--delay", 60, "250")
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
    odd = switch_tabs(job, *size)
    # Wine copies to the display what is drawn so far when that takes longer than 50 ms, which it
    # does only on a machine that has no time.
    if odd and os.getloadavg()[0] < os.cpu_count():
        job.screen.save_pixels(os.path.join(job.folder, "odd.ppm"), odd[0], size[0])
        sys.exit("real input: a page was seen half painted")
    job.click(*START)
    kept = until("the start record", lambda: job.has_told(r"maps; kept in (.*)"))
    record = read_record(kept.group(1))
    until("the dialog to close", lambda: job.has_told("^host: the dialog is closed"))
    job.enter("Quillstart reference host")
    job.keys("alt+F4")
    until("the host to end", lambda: job.host.poll() is not None)
    wanted = ["Loop maps +no ", "Max kills +250 ", "Rotation: 8 maps"] + [
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


def main(arch, host, scenario, folder):
    wine = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../../cmake/wine")
    if "QUILL_WINE_SESSION" not in os.environ:
        session = os.path.join(wine, "session")
        os.execv(session, [session, arch, sys.executable, os.path.abspath(__file__), *sys.argv[1:]])
    run = os.path.join(wine, "run")
    if not all(shutil.which(tool) for tool in ("Xvfb", "openbox", "xdotool")):
        print("real input: left out, because Xvfb, openbox or xdotool is not installed")
        return 77
    os.makedirs(folder, exist_ok=True)
    with tempfile.TemporaryDirectory() as frames:
        reads, writes = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writes), "-screen", "0", "1280x1024x24", "-fbdir", frames,
             "-nolisten", "tcp"], pass_fds=[writes], stderr=subprocess.DEVNULL)
        os.close(writes)
        number = os.read(reads, 16).decode().strip()
        if not number:
            print("real input: left out, because Xvfb does not start here")
            return 77
        environment = dict(os.environ, DISPLAY=":" + number, QUILL_WINE_DISPLAY="x11")
        rules = os.path.join(frames, "rc.xml")
        with open(rules, "w", encoding="utf-8") as file:
            file.write(WINDOW_MANAGER)
        manager = subprocess.Popen(["openbox", "--config-file", rules], env=environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        job = Job(run, host, scenario, folder, environment,
                  Screen(os.path.join(frames, "Xvfb_screen0")))
        try:
            return play(job)
        finally:
            job.picture("last")
            for process in (job.host, manager, server):
                if process.poll() is None:
                    process.terminate()
                    process.wait()


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
