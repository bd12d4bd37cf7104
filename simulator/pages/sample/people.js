'use strict';

/*
 * The view "People": the people of the robot's database, and their adding and
 * deleting.
 */
window.sample = window.sample || {};

(function (sample) {

  const FIRST_FREE_ID = 1;

  const element = (id) => document.getElementById(id);
  const { asText, asNumber, asId, isRecord } = sample.values;
  const { translate, show } = sample.language;
  const { createUserRequests, loadIds, saveIds, MAX_PEOPLE } = sample.userData;

  // id -> { id, record }. The record is undefined until the robot has
  // answered, false when it knows no such person.
  function createPeople(app) {
    const requests = createUserRequests(app);
    const people = new Map();
    const removed = new Set();
    const followers = [];

    // --- The people known --------------------------------------------------

    // Takes the person into the list and reads the record, unless it is there.
    function learn(id) {
      if (people.has(id) || removed.has(id) || !hasRoom()) {
        return;
      }
      people.set(id, { id, record: undefined });
      saveIds([...people.keys()]);
      read(id);
      changed();
    }

    // A full list gives up somebody whom the robot does not know.
    function hasRoom() {
      if (people.size >= MAX_PEOPLE) {
        const missing = [...people.values()].find(({ record }) => record === false);
        return missing !== undefined && people.delete(missing.id);
      }
      return true;
    }

    function read(id) {
      requests.request({ get_user: id }, (response) => {
        const person = people.get(id);
        if (!person || !response) {
          return;
        }
        const record = isRecord(response.get_user) ? response.get_user : false;
        if (JSON.stringify(record) !== JSON.stringify(person.record)) {
          person.record = record;
          changed();
        }
      });
    }

    function readAll() {
      people.forEach((person, id) => read(id));
    }

    // The camera may go on to name the person; that does not bring it back.
    function forget(id) {
      people.delete(id);
      removed.add(id);
      saveIds([...people.keys()]);
      changed();
    }

    function nameOf(id) {
      const person = people.get(id);
      return person && person.record ? asText(person.record.name) : '';
    }

    // The robot greets somebody: a record read before may have changed.
    function onUserFound({ user_id: value }) {
      const id = asId(value);
      if (id === null || id === 0) {
        return;
      }
      removed.delete(id);
      if (people.has(id)) {
        read(id);
      } else {
        learn(id);
      }
    }

    function changed() {
      drawList();
      followers.forEach((follow) => follow());
    }

    // --- The list ----------------------------------------------------------

    function drawList() {
      const sorted = [...people.values()].sort((a, b) => a.id - b.id);
      element('people').replaceChildren(...sorted.map(row));
      element('people-empty').hidden = sorted.length > 0;
      element('people-count').textContent = String(sorted.length);
      if (!isOwnId) {
        proposeId();
      }
    }

    function row({ id, record }) {
      const item = sample.make('li', 'person');
      const text = sample.make('div', 'person-text');
      text.append(
        sample.make('b', 'person-name', nameOf(id) || translate('personNumber', id)),
        sample.make('span', 'person-about', about(id, record)),
      );
      item.append(sample.make('span', 'person-initial', (nameOf(id) || '?').trim().slice(0, 1).toUpperCase()), text);
      if (record) {
        item.append(
          button('person-learn', 'learnFace', () => app.send('face.recognize.control', { add_face: id })),
          button('person-delete danger', 'delete', sample.confirmed(() => remove(id))),
        );
      } else if (record === false) {
        item.append(button('person-remove', 'removeFromList', () => forget(id)));
      }
      return item;
    }

    function button(className, key, onClick) {
      const node = sample.makeButton(className, key);
      node.name = className.split(' ')[0];
      node.addEventListener('click', onClick);
      return node;
    }

    function about(id, record) {
      if (record === undefined) {
        return translate('personReading');
      }
      if (record === false) {
        return translate('personMissing');
      }
      const age = asNumber(record.age);
      const visit = asText(record.last_visit).slice(0, 16).replace('T', ' ');
      return [
        nameOf(id) === '' ? '' : translate('personNumber', id),
        age === null || age <= 0 ? '' : translate('years', Math.round(age)),
        translate('genders')[asNumber(record.gender)] || '',
        visit === '' ? '' : translate('lastVisit', visit),
      ].filter((part) => part !== '').join(' · ');
    }

    // --- Adding and deleting -----------------------------------------------

    let isOwnId = false;   // the number in the form was typed, not proposed

    function proposeId() {
      let id = FIRST_FREE_ID;
      while (people.has(id) && people.get(id).record !== false) {
        id += 1;
      }
      element('person-id').value = String(id);
    }

    // A face that the camera sees becomes the form's first draft. It keeps its
    // number, when only the database does not know that yet.
    function propose({ id, age, gender }) {
      app.chooseView('people');
      isOwnId = id > 0 && people.has(id) && people.get(id).record === false;
      if (isOwnId) {
        element('person-id').value = String(id);
      } else {
        proposeId();
      }
      element('person-age').value = age === null || age <= 0 ? '' : String(Math.round(age));
      const choice = document.querySelector(`input[name="gender"][value="${Number(gender) || 0}"]`);
      if (choice) {
        choice.checked = true;
      }
      element('person-name').focus();
    }

    function add(event) {
      event.preventDefault();
      const name = element('person-name').value.trim();
      const id = asId(Number(element('person-id').value));
      if (name === '' || id === null || id <= 0) {
        show('people-state', 'personIncomplete');
        return;
      }
      const user = {
        id,
        name,
        age: Number(element('person-age').value) || 0,
        gender: Number(document.querySelector('input[name="gender"]:checked').value),
      };
      show('people-state', 'personSending');
      requests.request({ add_user: user }, (response) => onAdded(user, response));
    }

    function onAdded({ id, name }, response) {
      if (!response) {
        show('people-state', 'noReply');
      } else if (response.add_user !== true) {
        show('people-state', 'personRefused', id);
        learn(id);   // mostly because the number has an owner already
      } else {
        show('people-state', 'personAdded', name);
        isOwnId = false;
        element('person-form').reset();
        people.delete(id);
        removed.delete(id);
        learn(id);
        proposeId();
      }
    }

    function remove(id) {
      const name = nameOf(id) || translate('personNumber', id);
      requests.request({ del_user: id }, (response) => {
        if (!response) {
          show('people-state', 'noReply');
        } else if (response.del_user === true) {
          show('people-state', 'personDeleted', name);
          forget(id);
        } else {
          show('people-state', 'personKept', name);
          read(id);
        }
      });
    }

    function start() {
      requests.start();
      loadIds().forEach(learn);
    }

    element('person-form').addEventListener('submit', add);
    element('person-id').addEventListener('input', () => { isOwnId = true; });
    sample.language.onChange(drawList);
    show('people-state', 'peopleHint');

    return {
      start, learn, nameOf, propose,
      onView: readAll,
      onChange: (follow) => followers.push(follow),
      reactions: [
        ['user.has.user', onUserFound],
        ['database.user.response', requests.onResponse],
      ],
      buttons: {},
    };
  }

  sample.createPeople = createPeople;

})(window.sample);
