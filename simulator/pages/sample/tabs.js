'use strict';

/*
 * The page's views, one at a time, and the buttons that choose one. A button
 * belongs to the view that its aria-controls names.
 */
window.sample = window.sample || {};

(function (sample) {

  // onView(name) is called when a view comes into sight.
  function createTabs(bar, onView) {
    const tabs = Array.from(bar.querySelectorAll('[role="tab"]'));

    const nameOf = (tab) => tab.dataset.view;
    const viewOf = (tab) => document.getElementById(tab.getAttribute('aria-controls'));
    const isChosen = (tab) => tab.getAttribute('aria-selected') === 'true';

    function choose(name) {
      tabs.forEach((tab) => {
        const chosen = nameOf(tab) === name;
        tab.setAttribute('aria-selected', String(chosen));
        tab.tabIndex = chosen ? 0 : -1;
        viewOf(tab).hidden = !chosen;
        if (chosen) {
          tab.classList.remove('is-calling');
        }
      });
      onView(name);
    }

    // Something happens in a view. It comes into sight, unless that would take
    // the keyboard from somebody who is writing elsewhere: then its tab calls.
    function call(name) {
      const tab = tabs.find((candidate) => nameOf(candidate) === name);
      if (isChosen(tab)) {
        return;
      }
      if (document.activeElement && document.activeElement.matches('input, textarea')) {
        tab.classList.add('is-calling');
      } else {
        choose(name);
      }
    }

    function onKey(event) {
      const steps = { ArrowLeft: -1, ArrowUp: -1, ArrowRight: 1, ArrowDown: 1 };
      const step = steps[event.key];
      if (step) {
        event.preventDefault();
        const next = tabs[(tabs.findIndex(isChosen) + step + tabs.length) % tabs.length];
        choose(nameOf(next));
        next.focus();
      }
    }

    tabs.forEach((tab) => tab.addEventListener('click', () => choose(nameOf(tab))));
    bar.addEventListener('keydown', onKey);
    choose(nameOf(tabs[0]));

    return { choose, call };
  }

  sample.createTabs = createTabs;

})(window.sample);
